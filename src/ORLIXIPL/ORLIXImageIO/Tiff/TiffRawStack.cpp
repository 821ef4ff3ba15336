// Reading plans at equal distances in a file.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffRawStack.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/SampleUnpacking.h"

#include <algorithm>
#include <cstring>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_pieceBytes = 1ul << 20;

WideSize rowBytesOf(const TiffPage& page)
{
    return WideSize(page.width) * page.samples * (page.bits / 8);
}

template <class T>
void swapBytes(std::byte* first, unsigned long bytes)
{
    for (unsigned long i = 0; i + sizeof(T) <= bytes; i += sizeof(T)) {
        T value;
        std::memcpy(&value, first + i, sizeof(T));
        value = sizeof(T) == 2 ? static_cast<T>(__builtin_bswap16(static_cast<std::uint16_t>(value)))
                               : static_cast<T>(__builtin_bswap32(value));
        std::memcpy(first + i, &value, sizeof(T));
    }
}

void toHostOrder(TIFF* tiff, unsigned bits, std::byte* first, unsigned long bytes)
{
    if (TIFFIsByteSwapped(tiff) && bits == 16) {
        swapBytes<std::uint16_t>(first, bytes);
    } else if (TIFFIsByteSwapped(tiff) && bits == 32) {
        swapBytes<std::uint32_t>(first, bytes);
    }
}

} // namespace

void checkRawStack(TiffHandle& tiff, const TiffPage& page, const PixelForm& form, const BaseImageGeometry& geometry,
                   const ByteSource& source)
{
    if (page.compression != COMPRESSION_NONE || page.bTiled || page.bSeparate ||
        form.conversion != eSampleConversion::eCopy) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eBadDescription, source.getName(), "ImageJ",
                                    "it tells of more images than pages, which only uncompressed strips of 8, 16 or "
                                    "32 bits can be followed by");
    }
    const WideSize plans = WideSize(geometry.getSizeZ()) * geometry.getSizeT() * (geometry.getSizeC() / form.channels);
    const WideSize planBytes = std::max<WideSize>(rowBytesOf(page) * page.height, 1);
    const unsigned long offset = std::min<unsigned long>(TIFFGetStrileOffset(tiff, 0), source.getSize());
    const unsigned long directory = TIFFCurrentDirOffset(tiff);
    const unsigned long end = directory > offset ? std::min(directory, source.getSize()) : source.getSize();
    if (plans > (end - offset) / planBytes) {
        const WideSize claimed = plans > ~WideSize(0) / planBytes ? ~WideSize(0) : plans * planBytes;
        checkPlausibility(0, claimed, end - offset, 1, source.getName());
    }
}

void readRawStack(TiffHandle& tiff, const TiffPage& page, const PixelForm& form, ByteSource& source, BaseImage& image,
                  Progress& progress)
{
    const auto rowBytes = static_cast<unsigned long>(rowBytesOf(page));
    const unsigned long pieceRows = std::clamp(g_pieceBytes / rowBytes, 1ul, page.height);
    const bool bStraight = page.samples == 1 && form.inverted == 0;
    std::vector<std::byte> scratch(bStraight ? 0 : pieceRows * rowBytes);
    unsigned long offset = TIFFGetStrileOffset(tiff, 0), plan = 0;

    const auto readRows = [&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
        const unsigned long rows = std::min(pieceRows, page.height - y);
        std::byte* const first = bStraight ? image.accessRow(y, z, c, t) : scratch.data();
        const bool bRead = source.read(offset, first, rows * rowBytes) == rows * rowBytes;
        if (!bRead || !progress.goesOnAfter(rows * rowBytes)) {
            tiff.messages().error = "the pixels end early";
            tiff.raiseDamaged(plan);
        }
        toHostOrder(tiff, page.bits, first, rows * rowBytes);
        for (unsigned long line = 0; !bStraight && line < rows; ++line) {
            const SampleRow row = {first + line * rowBytes, page.samples, page.bits, page.width};
            for (unsigned sample = 0; sample < page.samples; ++sample) {
                unpackRow(row, sample, sample, form, {}, image.accessRow(y + line, z, c + sample, t));
            }
        }
        offset += rows * rowBytes;
    };

    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
            for (unsigned long c = 0; c < image.getSizeC(); c += page.samples, ++plan) {
                for (unsigned long y = 0; y < page.height; y += pieceRows) {
                    readRows(y, z, c, t);
                }
                progress.addPlans(page.samples);
                if (!progress.goesOn()) {
                    tiff.raiseDamaged(plan);
                }
            }
        }
    }
}

} // namespace orlix::image::io
