// Swapping in place.
#include "ORLIXIPL/ORLIXImageIO/Tiff/ByteSwap.h"

#include <cstdint>
#include <cstring>

namespace orlix::image::io {

namespace {

template <class T>
void swapBytes(std::byte* first, unsigned long bytes)
{
    for (unsigned long i = 0; i < bytes; i += sizeof(T)) {
        T value;
        std::memcpy(&value, first + i, sizeof(T));
        value = sizeof(T) == 2 ? static_cast<T>(__builtin_bswap16(static_cast<std::uint16_t>(value)))
                               : static_cast<T>(__builtin_bswap32(value));
        std::memcpy(first + i, &value, sizeof(T));
    }
}

} // namespace

void swapElements(std::byte* first, unsigned long bytes, unsigned long elementBytes)
{
    if (elementBytes == 2) {
        swapBytes<std::uint16_t>(first, bytes);
    } else if (elementBytes == 4) {
        swapBytes<std::uint32_t>(first, bytes);
    }
}

} // namespace orlix::image::io
