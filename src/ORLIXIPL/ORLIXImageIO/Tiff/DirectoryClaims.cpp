// Looking into directories without libtiff.
#include "ORLIXIPL/ORLIXImageIO/Tiff/DirectoryClaims.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include <tiff.h>

#include <algorithm>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_unknown = NumericLimits<unsigned long>::s_max;

/// Where a tag stands twice, what gives more blocks: libtiff takes either.
struct Claims
{
    unsigned long width = 0, height = 0, depth = 1, samples = 1;
    unsigned long rows = g_unknown, tileWidth = g_unknown, tileHeight = g_unknown, tileDepth = g_unknown;
    bool bSeparate = false;

    void take(unsigned long tag, unsigned long value)
    {
        const auto atLeast = [&](unsigned long& size) { size = std::max(size, value); };
        const auto atMost = [&](unsigned long& size) { size = std::min(size, std::max(value, 1ul)); };
        switch (tag) {
        case TIFFTAG_IMAGEWIDTH: return atLeast(width);
        case TIFFTAG_IMAGELENGTH: return atLeast(height);
        case TIFFTAG_IMAGEDEPTH: return atLeast(depth);
        case TIFFTAG_SAMPLESPERPIXEL: return atLeast(samples);
        case TIFFTAG_ROWSPERSTRIP: return atMost(rows);
        case TIFFTAG_TILEWIDTH: return atMost(tileWidth);
        case TIFFTAG_TILELENGTH: return atMost(tileHeight);
        case TIFFTAG_TILEDEPTH: return atMost(tileDepth);
        case TIFFTAG_PLANARCONFIG: bSeparate = bSeparate || value == PLANARCONFIG_SEPARATE; return;
        default: return;
        }
    }

    WideSize blocks() const
    {
        const auto along = [](unsigned long size, unsigned long block) {
            return block == g_unknown ? WideSize(1) : (WideSize(size) + block - 1) / block;
        };
        const WideSize tiles = along(width, tileWidth) * along(height, tileHeight) * along(depth, tileDepth);
        return std::max(tiles, along(height, rows)) * (bSeparate ? samples : 1);
    }
};

unsigned long bytesOfType(unsigned long type)
{
    switch (type) {
    case TIFF_BYTE:
    case TIFF_SBYTE: return 1;
    case TIFF_SHORT:
    case TIFF_SSHORT: return 2;
    case TIFF_LONG:
    case TIFF_SLONG: return 4;
    case TIFF_LONG8:
    case TIFF_SLONG8: return 8;
    default: return 0;
    }
}

/// Of a directory that may reach beyond the end, the part that is there.
unsigned long entriesOf(ByteSource& source, const TiffNumbers& numbers, unsigned long directory)
{
    const unsigned long size = source.getSize();
    if (directory > size || size - directory < numbers.countBytes()) {
        return 0;
    }
    return std::min(numbers.read(source, directory, numbers.countBytes()),
                    (size - directory - numbers.countBytes()) / numbers.entryBytes());
}

} // namespace

unsigned long TiffNumbers::read(ByteSource& source, unsigned long offset, unsigned long bytes) const noexcept
{
    unsigned char digits[8] = {};
    if (source.read(offset, digits, bytes) != bytes) {
        return 0;
    }
    unsigned long number = 0;
    for (unsigned long i = 0; i < bytes; ++i) {
        number = number << 8 | digits[bBigEndian ? i : bytes - 1 - i];
    }
    return number;
}

TiffNumbers tiffNumbersOf(ByteSource& source)
{
    constexpr unsigned long g_bigTiffVersion = 43;
    TiffNumbers numbers;
    char mark = 0;
    numbers.bBigEndian = source.read(0, &mark, 1) == 1 && mark == 'M';
    numbers.bBigTiff = numbers.read(source, 2, 2) == g_bigTiffVersion;
    return numbers;
}

unsigned long firstDirectoryOf(ByteSource& source)
{
    const TiffNumbers numbers = tiffNumbersOf(source);
    return numbers.read(source, numbers.bBigTiff ? 8 : 4, numbers.offsetBytes());
}

unsigned long nextDirectoryOf(ByteSource& source, const TiffNumbers& numbers, unsigned long directory)
{
    const unsigned long entries = entriesOf(source, numbers, directory);
    return numbers.read(source, directory + numbers.countBytes() + entries * numbers.entryBytes(),
                        numbers.offsetBytes());
}

void checkNumberOfBlocks(ByteSource& source, const TiffNumbers& numbers, unsigned long directory, unsigned long page)
{
    constexpr unsigned long g_smallestListing = 2;  // bytes of a strip's offset
    constexpr unsigned long g_harmless = 1ul << 16; // libtiff takes 16 bytes for each
    const unsigned long entries = entriesOf(source, numbers, directory);
    Claims claims;
    for (unsigned long entry = 0; entry < entries; ++entry) {
        const unsigned long start = directory + numbers.countBytes() + entry * numbers.entryBytes();
        const unsigned long bytes = bytesOfType(numbers.read(source, start + 2, 2));
        if (bytes != 0 && bytes <= numbers.offsetBytes()) {
            claims.take(numbers.read(source, start, 2), numbers.read(source, start + 4 + numbers.offsetBytes(), bytes));
        }
    }
    if (claims.blocks() > g_harmless && claims.blocks() * g_smallestListing > source.getSize()) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eDamagedTiff, source.getName(), page,
                                    "it tells of " + textOf(claims.blocks()) +
                                        " strips or tiles, more than the file can list");
    }
}

} // namespace orlix::image::io
