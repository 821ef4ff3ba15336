// NumPy's C interface, imported once by Module.cpp.
#pragma once

#define NPY_NO_DEPRECATED_API NPY_1_22_API_VERSION
#define NPY_TARGET_VERSION NPY_1_22_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL orlix_python_numpy
#ifndef ORLIX_PYTHON_IMPORTS_NUMPY
#define NO_IMPORT_ARRAY
#endif

#include <nanobind/nanobind.h>
#include <numpy/arrayobject.h>

#include <string>

namespace orlix::python {

namespace nb = nanobind;

/// Any kind of array, a subclass of NumPy's included.
inline bool isArray(nb::handle object)
{
    return PyArray_Check(object.ptr());
}
/// What `str` makes of it.
inline std::string textOf(const nb::object& object)
{
    return nb::steal<nb::str>(PyObject_Str(object.ptr())).c_str();
}
inline PyArrayObject* asArray(nb::handle object)
{
    return reinterpret_cast<PyArrayObject*>(object.ptr());
}

} // namespace orlix::python
