// Reading rows at known places in a file.
#include "ORLIXIPL/ORLIXImageIO/Tiff/RawPageReader.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/ByteSwap.h"

#include <algorithm>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_pieceBytes = 256ul << 10;

unsigned long rowBytesOf(const TiffPage& page)
{
    return page.width * page.samples * (page.bits / 8);
}

} // namespace

bool RawPageReader::suits(const TiffPage& page, const PixelForm& form)
{
    return page.rawOffset != 0 && form.conversion == eSampleConversion::eCopy;
}

void RawPageReader::read(const TiffPage& page, const PixelForm& form, unsigned long offset, const PagePlace& place)
{
    const unsigned long rowBytes = rowBytesOf(page);
    const unsigned long pieceRows = std::clamp(g_pieceBytes / rowBytes, 1ul, page.height);
    for (unsigned long y = 0; y < page.height; y += pieceRows) {
        readRows(page, form, offset + y * rowBytes, place, y, std::min(pieceRows, page.height - y));
    }
}

void RawPageReader::readRows(const TiffPage& page, const PixelForm& form, unsigned long offset, const PagePlace& place,
                             unsigned long y, unsigned long rows)
{
    const unsigned long rowBytes = rowBytesOf(page);
    const bool bStraight = page.samples == 1 && form.inverted == 0;
    if (!bStraight) {
        m_scratch.resize(std::max(m_scratch.size(), rows * rowBytes));
    }
    std::byte* const first = bStraight ? m_image.accessRow(y, place.z, place.c, place.t) : m_scratch.data();
    const bool bRead = m_source.read(offset, first, rows * rowBytes) == rows * rowBytes;
    if (!bRead || !m_progress.goesOnAfter(rows * rowBytes)) {
        m_tiff.messages().error = "its pixels end early";
        m_tiff.raiseDamaged(place.page);
    }
    if (TIFFIsByteSwapped(m_tiff)) {
        swapElements(first, rows * rowBytes, page.bits / 8);
    }
    for (unsigned long line = 0; !bStraight && line < rows; ++line) {
        const SampleRow row = {first + line * rowBytes, page.samples, page.bits, page.width};
        for (unsigned sample = 0; sample < page.samples; ++sample) {
            unpackRow(row, sample, sample, form, {}, m_image.accessRow(y + line, place.z, place.c + sample, place.t));
        }
    }
}

void RawPageReader::readStack(const TiffPage& page, const PixelForm& form)
{
    unsigned long offset = page.rawOffset;
    PagePlace place = {0, 0, 0, 0};
    for (place.t = 0; place.t < m_image.getSizeT(); ++place.t) {
        for (place.z = 0; place.z < m_image.getSizeZ(); ++place.z) {
            for (place.c = 0; place.c < m_image.getSizeC(); place.c += page.samples, ++place.page) {
                read(page, form, offset, place);
                offset += rowBytesOf(page) * page.height;
                m_progress.addPlans(page.samples);
                if (!m_progress.goesOn()) {
                    m_tiff.raiseDamaged(place.page);
                }
            }
        }
    }
}

void checkRawStack(TIFF* tiff, const TiffPage& page, const PixelForm& form, const BaseImageGeometry& geometry,
                   const ByteSource& source)
{
    if (!RawPageReader::suits(page, form)) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eBadDescription, source.getName(), "ImageJ",
                                    "it tells of more images than pages, which only uncompressed strips of 8, 16 or "
                                    "32 bits can be followed by");
    }
    const WideSize plans = WideSize(geometry.getSizeZ()) * geometry.getSizeT() * (geometry.getSizeC() / form.channels);
    const WideSize planBytes = WideSize(rowBytesOf(page)) * page.height;
    const unsigned long offset = std::min(page.rawOffset, source.getSize());
    const unsigned long directory = TIFFCurrentDirOffset(tiff);
    const unsigned long end = directory > offset ? std::min(directory, source.getSize()) : source.getSize();
    if (plans > (end - offset) / planBytes) {
        const WideSize claimed = plans > ~WideSize(0) / planBytes ? ~WideSize(0) : plans * planBytes;
        checkPlausibility(0, claimed, end - offset, 1, source.getName());
    }
}

} // namespace orlix::image::io
