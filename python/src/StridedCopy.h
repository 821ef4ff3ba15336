// Elements that lie anywhere, to dense memory and back.
#pragma once

#include "ArrayLayout.h"

namespace orlix::python {

/// Copies all elements, the last axis running fastest, to `dense`: any strides, also negative or 0, any alignment.
/// `bSwapped`: each element's bytes in reverse.
void gatherElements(const ArrayMemory& from, bool bSwapped, std::byte* dense);

/// The way back, to elements that don't overlap.
void scatterElements(const std::byte* dense, const ArrayMemory& to);

} // namespace orlix::python
