// Reading rows at known places in a file.
#include "ORLIXIPL/ORLIXImageIO/Tiff/RawPageReader.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/ByteSwap.h"

#include <algorithm>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_pieceBytes = 256ul << 10;
constexpr unsigned long g_skippedBytes = 32ul << 10; // at least, to be worth a read for each row

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
    const ImageRegion& region = m_target.getRegion();
    const unsigned long rowBytes = rowBytesOf(page), pixelBytes = rowBytes / page.width;
    // What lies between the wanted parts of two rows is read too, unless it is much.
    const bool bRowByRow = rowBytes - region.x.size * pixelBytes >= g_skippedBytes;
    const AxisPart columns = bRowByRow ? region.x : AxisPart{0, page.width};
    const unsigned long pieceRows = bRowByRow ? 1 : std::max(g_pieceBytes / rowBytes, 1ul);
    for (unsigned long y = region.y.first; y < region.y.end(); y += pieceRows) {
        readRows(page, form, offset + y * rowBytes + columns.first * pixelBytes, place, columns,
                 {y, std::min(pieceRows, region.y.end() - y)});
    }
}

void RawPageReader::readRows(const TiffPage& page, const PixelForm& form, unsigned long offset, const PagePlace& place,
                             const AxisPart& columns, const AxisPart& rows)
{
    const ImageRegion& region = m_target.getRegion();
    const unsigned long lineBytes = columns.size * page.samples * (page.bits / 8), bytes = rows.size * lineBytes;
    const bool bStraight = page.samples == 1 && form.inverted == 0 && columns == region.x;
    if (!bStraight) {
        m_scratch.resize(std::max(m_scratch.size(), bytes));
    }
    std::byte* const first = bStraight ? m_target.accessRow(rows.first, place.c, place) : m_scratch.data();
    const bool bRead = m_source.read(offset, first, bytes) == bytes;
    if (!bRead || !m_progress.goesOnAfter(bytes)) {
        m_tiff.messages().error = "its pixels end early";
        m_tiff.raiseDamaged(place.page);
    }
    if (TIFFIsByteSwapped(m_tiff)) {
        swapElements(first, bytes, page.bits / 8);
    }
    const AxisPart channels = region.channelsOf(place, page.samples);
    for (unsigned long line = 0; !bStraight && line < rows.size; ++line) {
        const SampleRow row = {first + line * lineBytes, page.samples, page.bits, region.x.size,
                               region.x.first - columns.first};
        for (unsigned long c = channels.first; c < channels.end(); ++c) {
            const unsigned long sample = c - place.c;
            unpackRow(row, static_cast<unsigned>(sample), sample, form, {},
                      m_target.accessRow(rows.first + line, c, place));
        }
    }
}

void RawPageReader::readStack(const TiffPage& page, const PixelForm& form, const BaseImageGeometry& whole)
{
    const ImageRegion& region = m_target.getRegion();
    const unsigned long planBytes = rowBytesOf(page) * page.height, pagesPerPlan = whole.getSizeC() / page.samples;
    PagePlace place = {0, 0, 0, 0};
    for (place.t = region.t.first; place.t < region.t.end(); ++place.t) {
        for (place.z = region.z.first; place.z < region.z.end(); ++place.z) {
            for (place.c = region.c.first / page.samples * page.samples; place.c < region.c.end();
                 place.c += page.samples) {
                place.page = (place.t * whole.getSizeZ() + place.z) * pagesPerPlan + place.c / page.samples;
                read(page, form, page.rawOffset + place.page * planBytes, place);
                m_progress.addPlans(region.channelsOf(place, page.samples).size);
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
