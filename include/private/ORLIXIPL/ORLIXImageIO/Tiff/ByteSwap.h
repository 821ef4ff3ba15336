// Turning elements from one byte order to the other.
#pragma once

#include <cstddef>

namespace orlix::image::io {

/// Swaps the bytes of each element in place. Elements of one byte are left as they are; `elementBytes` is 1, 2 or 4.
void swapElements(std::byte* first, unsigned long bytes, unsigned long elementBytes);

} // namespace orlix::image::io
