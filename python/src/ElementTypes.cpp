// Element types of the libraries and NumPy's.
#include "ElementTypes.h"

#include <nanobind/stl/string.h>

#include <array>
#include <string>
#include <utility>

namespace orlix::python {

namespace {

using image::eImageBufferType;

constexpr std::array<std::pair<int, eImageBufferType::domain>, 8> g_types = {
    {{NPY_BOOL, eImageBufferType::eBufferBinary},
     {NPY_INT8, eImageBufferType::Int8},
     {NPY_UINT8, eImageBufferType::UInt8},
     {NPY_INT16, eImageBufferType::Int16},
     {NPY_UINT16, eImageBufferType::UInt16},
     {NPY_INT32, eImageBufferType::Int32},
     {NPY_UINT32, eImageBufferType::UInt32},
     {NPY_FLOAT32, eImageBufferType::Real32}}};

[[noreturn]] void throwUnknown(nb::handle dtype)
{
    const std::string text = "elements of type " + textOf(nb::borrow(dtype)) +
                             " are not supported: bool, int8, uint8, int16, uint16, int32, uint32 and float32 are; "
                             "convert with astype, where you settle what becomes of values that don't fit";
    throw nb::type_error(text.c_str());
}

eImageBufferType elementTypeOfNumber(int number, nb::handle dtype)
{
    for (const auto& [known, type] : g_types) {
        if (known == number) {
            return type;
        }
    }
    throwUnknown(dtype);
}

} // namespace

int typeNumberOf(const eImageBufferType& type)
{
    switch (static_cast<eImageBufferType::domain>(type)) {
    case eImageBufferType::eBufferUInt8Like: return NPY_UINT8;
    case eImageBufferType::eBufferUInt16Like: return NPY_UINT16;
    case eImageBufferType::eBufferUInt32Like: return NPY_UINT32;
    default: break;
    }
    for (const auto& [number, known] : g_types) {
        if (known == type) {
            return number;
        }
    }
    return NPY_NOTYPE;
}

eImageBufferType elementTypeOf(PyArrayObject* array)
{
    return elementTypeOfNumber(PyArray_TYPE(array), reinterpret_cast<PyObject*>(PyArray_DESCR(array)));
}

eImageBufferType elementTypeNamed(nb::handle dtype)
{
    if (PyArray_DescrCheck(dtype.ptr())) {
        return elementTypeOfNumber(reinterpret_cast<PyArray_Descr*>(dtype.ptr())->type_num, dtype);
    }
    if (nb::isinstance<nb::str>(dtype)) {
        const std::string name = nb::cast<std::string>(dtype);
        for (const eImageBufferType::domain type : image::g_allBufferTypes) {
            if (name == image::getBufferTypeName(type)) {
                return type;
            }
        }
    }
    if (PyLong_Check(dtype.ptr()) && !PyBool_Check(dtype.ptr())) { // an orlix.ElementType
        const long number = nb::cast<long>(dtype);
        for (const eImageBufferType::domain type : image::g_allBufferTypes) {
            if (number == type) {
                return type;
            }
        }
        throwUnknown(dtype);
    }
    PyArray_Descr* descr = nullptr;
    if (PyArray_DescrConverter(dtype.ptr(), &descr) != NPY_SUCCEED) {
        throw nb::python_error();
    }
    const nb::object owner = nb::steal(reinterpret_cast<PyObject*>(descr));
    return elementTypeOfNumber(descr->type_num, owner);
}

nb::object dtypeOf(const eImageBufferType& type)
{
    return nb::steal(reinterpret_cast<PyObject*>(PyArray_DescrFromType(typeNumberOf(type))));
}

} // namespace orlix::python
