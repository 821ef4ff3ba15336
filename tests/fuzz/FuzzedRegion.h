// A region of an image file that depends on the file's last bytes alone, in the image or not.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/ReadRegion.h"

#include <utility>

namespace orlix::fuzz {

/// Small offsets and sizes, some of them left out: most images that fuzzers make are small.
inline std::pair<image::io::RegionOffsets, image::io::RegionSizes> regionIn(const unsigned char* data, std::size_t size)
{
    const auto byteAt = [&](std::size_t fromEnd) { return fromEnd < size ? data[size - 1 - fromEnd] : 0u; };
    const auto offset = [&](std::size_t index) { return static_cast<unsigned long>(byteAt(index) % 8); };
    const auto part = [&](std::size_t index) {
        const unsigned byte = byteAt(index);
        return byte % 4 == 0 ? std::nullopt : std::optional<unsigned long>(byte / 4);
    };
    return {{offset(0), offset(1), byteAt(2) % 2ul, byteAt(3) % 2ul, byteAt(4) % 2ul},
            {part(5), part(6), part(7), part(8), part(9)}};
}

} // namespace orlix::fuzz
