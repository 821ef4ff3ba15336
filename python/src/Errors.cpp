// Exceptions of the libraries as Python's.
#include "Operators.h"

#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"

namespace orlix::python {

void bindErrors(nb::module_& module)
{
    // Those that are registered last are asked first.
    nb::exception<BaseException>(module, "OrlixError", PyExc_ValueError);
    nb::exception<image::io::ORLIXImageIOException>(module, "OrlixFileError", PyExc_OSError);
}

} // namespace orlix::python
