// Numbers and texts as Python gives them, refused by the name of the argument.
#include "Arguments.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

namespace {

std::string typeOf(nb::handle value)
{
    return nb::cast<std::string>(nb::getattr(value.type(), "__name__"));
}

[[noreturn]] void refuseType(nb::handle value, const char* what, const char* needed)
{
    throw nb::type_error((std::string(what) + " is of type " + typeOf(value) + ": " + needed + " is needed").c_str());
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

} // namespace

std::vector<npy_intp> integersOf(nb::handle numbers, const char* what)
{
    requireSequence(numbers, what, "a sequence of ints");
    std::vector<npy_intp> integers;
    for (const nb::handle number : numbers) {
        const nb::object index = nb::steal(PyNumber_Index(number.ptr()));
        if (!index.is_valid()) {
            PyErr_Clear();
            throw nb::type_error((started(number, what) + " is no int").c_str());
        }
        integers.push_back(PyLong_AsSsize_t(index.ptr()));
        if (PyErr_Occurred() != nullptr) {
            PyErr_Clear();
            throw nb::value_error((started(number, what) + " is beyond what a size can be").c_str());
        }
    }
    return integers;
}

std::vector<float> floatsOf(nb::handle numbers, const char* what)
{
    requireSequence(numbers, what, "a sequence of numbers");
    std::vector<float> floats;
    for (const nb::handle number : numbers) {
        const double value = PyFloat_AsDouble(number.ptr());
        if (PyErr_Occurred() != nullptr) {
            PyErr_Clear();
            throw nb::type_error((started(number, what) + " is no number").c_str());
        }
        floats.push_back(static_cast<float>(value));
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
