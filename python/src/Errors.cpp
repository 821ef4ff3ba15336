// Exceptions of the libraries as Python's.
#include "Operators.h"

#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"

namespace orlix::python {

void bindErrors(nb::module_& module)
{
    // Those that are registered last are asked first.
    nb::exception<BaseException>(module, "OrlixError", PyExc_ValueError).attr("__doc__") =
        "A rule of an operator is broken; the text says which, what was found, and what to do.";
    nb::exception<image::io::ORLIXImageIOException>(module, "OrlixFileError", PyExc_OSError).attr("__doc__") =
        "An image file can't be read or written; the text says why.";
}

} // namespace orlix::python
