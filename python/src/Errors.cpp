// Exceptions of the libraries as Python's.
#include "Operators.h"

#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

namespace {

/// A text of the libraries, in which the name of a file may be of any bytes.
nb::object toPython(const std::string& text)
{
    return nb::steal(PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape"));
}

void setError(nb::handle type, const BaseException& error)
{
    const nb::object raised = type(toPython(error.getMessage()));
    if (const MessageNumber& number = error.getMessageNumber(); !number.empty()) {
        raised.attr("message_number") = nb::make_tuple(number.catalogue, number.id);
    }
    if (nb::hasattr(raised, "add_note")) { // from Python 3.11 on
        raised.attr("add_note")(
            toPython(error.getFile() + ":" + std::to_string(error.getLine()) + ", " + error.getFunction()));
    }
    PyErr_SetObject(type.ptr(), raised.ptr());
}

template <class TException>
void translate(const std::exception_ptr& thrown, void* type)
{
    try {
        std::rethrow_exception(thrown);
    } catch (const TException& exception) {
        try {
            setError(static_cast<PyObject*>(type), exception);
        } catch (nb::python_error& error) {
            error.restore(); // memory has run out, as a rule
        }
    }
}

/// Makes the class that `TException` becomes.
template <class TException>
void bindError(nb::module_& module, const char* name, PyObject* base, const char* doc)
{
    nb::dict members;
    members["message_number"] = nb::none();
    const std::string fullName = nb::cast<std::string>(module.attr("__name__")) + "." + name;
    const nb::object type = nb::steal(PyErr_NewExceptionWithDoc(fullName.c_str(), doc, base, members.ptr()));
    module.attr(name) = type;
    nb::register_exception_translator(&translate<TException>, type.ptr());
}

} // namespace

void bindErrors(nb::module_& module)
{
    // Those that are registered last are asked first.
    bindError<BaseException>(module, "OrlixError", PyExc_ValueError,
                             "A rule of an operator is broken; the text says which, what was found, and what to do.\n\n"
                             "Attributes\n"
                             "----------\n"
                             "message_number : tuple of (str, int), or None\n"
                             "    Catalogue and number of the libraries' message; they stay where a text is mended.\n");
    bindError<image::io::ORLIXImageIOException>(module, "OrlixFileError", PyExc_OSError,
                                                "An image file can't be read or written; the text says why.\n\n"
                                                "Attributes\n"
                                                "----------\n"
                                                "message_number : tuple of (str, int), or None\n"
                                                "    As that of `OrlixError`.\n");
}

} // namespace orlix::python
