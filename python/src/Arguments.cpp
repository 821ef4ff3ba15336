// Numbers and texts as Python gives them, refused by the name of the argument.
#include "Arguments.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

namespace {

std::string typeOf(nb::handle value)
{
    return nb::cast<std::string>(nb::getattr(value.type(), "__name__"));
}

void requireSequence(nb::handle numbers, const char* what, const char* needed)
{
    if (PySequence_Check(numbers.ptr()) == 0 || nb::isinstance<nb::str>(numbers)) {
        refuseType(numbers, what, needed);
    }
}

std::string started(nb::handle value, const char* what)
{
    return std::string(what) + ": " + nb::cast<std::string>(nb::repr(value));
}

[[noreturn]] void refuseInteger(nb::handle value, const char* what)
{
    PyErr_Clear();
    throw nb::type_error((started(value, what) + " is no int").c_str());
}

} // namespace

void refuseType(nb::handle value, const char* what, const char* needed)
{
    throw nb::type_error((std::string(what) + " is of type " + typeOf(value) + ": " + needed + " is needed").c_str());
}

std::vector<npy_intp> integersOf(nb::handle numbers, const char* what)
{
    requireSequence(numbers, what, "a sequence of ints");
    std::vector<npy_intp> integers;
    for (const nb::handle number : numbers) {
        const nb::object index = nb::steal(PyNumber_Index(number.ptr()));
        if (!index.is_valid()) {
            refuseInteger(number, what);
        }
        integers.push_back(PyLong_AsSsize_t(index.ptr()));
        if (PyErr_Occurred() != nullptr) {
            PyErr_Clear();
            throw nb::value_error((started(number, what) + " is beyond what a size can be").c_str());
        }
    }
    return integers;
}

double numberOf(nb::handle number, const char* what)
{
    const double value = PyFloat_AsDouble(number.ptr());
    if (PyErr_Occurred() == nullptr) {
        return value;
    }
    if (PyErr_ExceptionMatches(PyExc_TypeError) != 0) {
        PyErr_Clear();
        throw nb::type_error((started(number, what) + " is no number").c_str());
    }
    if (PyErr_ExceptionMatches(PyExc_OverflowError) != 0) {
        PyErr_Clear();
        PyErr_Format(PyExc_OverflowError, "%s is an int beyond what a float can hold", what);
    }
    throw nb::python_error();
}

long indexOf(nb::handle number, const char* what)
{
    if (PyIndex_Check(number.ptr()) == 0) {
        refuseInteger(number, what);
    }
    const long place = PyNumber_AsSsize_t(number.ptr(), nullptr);
    if (PyErr_Occurred() != nullptr) {
        throw nb::python_error();
    }
    return place;
}

std::vector<float> floatsOf(nb::handle numbers, const char* what)
{
    requireSequence(numbers, what, "a sequence of numbers");
    std::vector<float> floats;
    for (const nb::handle number : numbers) {
        floats.push_back(static_cast<float>(numberOf(number, what)));
    }
    return floats;
}

std::string textOf(nb::handle text, const char* what)
{
    if (!nb::isinstance<nb::str>(text)) {
        refuseType(text, what, "a str");
    }
    return nb::cast<std::string>(text);
}

} // namespace orlix::python
