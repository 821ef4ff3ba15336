// Numbers and texts as Python gives them, refused by the name of the argument.
#pragma once

#include "Numpy.h"

#include <vector>

namespace orlix::python {

/// The ints of a sequence. TypeError, naming `what`, for anything else; ValueError for one beyond 64 bits.
std::vector<npy_intp> integersOf(nb::handle numbers, const char* what);

/// The number. TypeError, naming `what`, for anything else; OverflowError for an int that no float can hold.
double numberOf(nb::handle number, const char* what);

/// The int, or the largest or smallest where it has more than 64 bits: as a place it lies outside all the same.
/// TypeError, naming `what`, for anything else.
long indexOf(nb::handle number, const char* what);

/// The numbers of a sequence. TypeError, naming `what`, for anything else.
std::vector<float> floatsOf(nb::handle numbers, const char* what);

/// Throws TypeError: `what` is `value`, where what `needed` says is needed.
[[noreturn]] void refuseType(nb::handle value, const char* what, const char* needed);

/// TypeError, naming `what`, for anything but a str.
std::string textOf(nb::handle text, const char* what);

} // namespace orlix::python
