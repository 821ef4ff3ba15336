// Places and sizes as Python gives them: in the order of an array's axes.
#pragma once

#include "ArrayImages.h"

#include <array>
#include <string>

namespace orlix::python {

/// Two numbers (y, x) or three (z, y, x), none below 0.
struct Place
{
    bool b3d = false;
    unsigned long x = 0, y = 0, z = 0;
};

/// ValueError, naming `what`, for another count or a number below 0.
Place placeOf(nb::handle numbers, const char* what);

/// "x", "y" or "z" as 0 to 2; ValueError for others.
unsigned axisNamed(const std::string& name);

/// An index from 0, or from the end where it is below 0, of `size` places. IndexError outside.
unsigned long indexWithin(long index, unsigned long size, const char* what);

} // namespace orlix::python
