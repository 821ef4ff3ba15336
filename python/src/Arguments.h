// Numbers and texts as Python gives them, refused by the name of the argument.
#pragma once

#include "Numpy.h"

#include <vector>

namespace orlix::python {

/// The ints of a sequence. TypeError, naming `what`, for anything else; ValueError for one beyond 64 bits.
std::vector<npy_intp> integersOf(nb::handle numbers, const char* what);

/// The numbers of a sequence. TypeError, naming `what`, for anything else.
std::vector<float> floatsOf(nb::handle numbers, const char* what);

/// TypeError, naming `what`, for anything but a str.
std::string textOf(nb::handle text, const char* what);

} // namespace orlix::python
