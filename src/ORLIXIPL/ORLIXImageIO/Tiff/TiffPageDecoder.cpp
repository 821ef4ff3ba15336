// Decoding pages.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPageDecoder.h"

#include <algorithm>

namespace orlix::image::io {

namespace {

// Of a strip or tile, from its sizes; libtiff's own function answers 0 for what overflows.
WideSize bytesOfRow(const TiffPage& page)
{
    const unsigned samples = page.bSeparate ? 1 : page.samples;
    return (WideSize(page.blockWidth) * samples * page.bits + 7) / 8;
}

// Codecs that hand out a strip row by row, so that reading can be stopped in the middle of it.
bool comesByRows(const TiffPage& page)
{
    if (page.bTiled) {
        return false;
    }
    switch (page.compression) {
    case COMPRESSION_PACKBITS:
    case COMPRESSION_LZW:
    case COMPRESSION_DEFLATE:
    case COMPRESSION_ADOBE_DEFLATE:
    case COMPRESSION_ZSTD:
    case COMPRESSION_LZMA: return true;
    default: return false;
    }
}

} // namespace

WideSize scratchBytesOf(const TiffPage& page, const PixelForm& form)
{
    if (form.conversion == eSampleConversion::eByLibrary) {
        return WideSize(page.width) * page.height * 4;
    }
    return comesByRows(page) ? bytesOfRow(page) : bytesOfRow(page) * page.blockHeight;
}

void TiffPageDecoder::decode(const TiffPage& page, const PixelForm& form, const PagePlace& place)
{
    m_page = page;
    m_form = form;
    m_place = place;
    m_tiff.messages().clear();
    if (form.conversion == eSampleConversion::eByLibrary) {
        decodeByLibrary(page);
        return;
    }
    if (form.conversion == eSampleConversion::ePalette) {
        m_palette = paletteOf(m_tiff, page.bits);
        check(!m_palette[0].empty());
    }
    const unsigned passes = page.bSeparate ? page.samples : 1;
    for (unsigned sample = 0; sample < passes; ++sample) {
        if (!page.bSeparate || region().c.contains(place.c + sample)) {
            decodeBlocks(sample);
        }
    }
}

void TiffPageDecoder::decodeBlocks(unsigned sample)
{
    const unsigned long height = m_page.blockHeight, width = m_page.blockWidth;
    const AxisPart& rows = region().y;
    const AxisPart& columns = region().x;
    for (unsigned long y = rows.first / height * height; y < rows.end(); y += height) {
        for (unsigned long x = columns.first / width * width; x < columns.end(); x += width) {
            const Block block = {x, y, std::min(height, m_page.height - y), sample};
            if (comesByRows(m_page)) {
                decodeByRows(block);
            } else {
                decodeWhole(block);
            }
        }
    }
}

// Of a strip. Rows above those that are wanted have to be decoded too.
void TiffPageDecoder::decodeByRows(const Block& block)
{
    static_cast<void>(indexOf(block)); // it must be there
    m_scratch.resize(rowBytes());
    const bool bStraight = goesStraight();
    const unsigned long end = std::min(block.y + block.height, region().y.end());
    for (unsigned long y = block.y; y < end; ++y) {
        const bool bWanted = region().y.contains(y);
        std::byte* const row =
            bWanted && bStraight ? m_target.accessRow(y, m_place.c + block.sample, m_place) : m_scratch.data();
        check(TIFFReadScanline(m_tiff, row, static_cast<std::uint32_t>(y), static_cast<std::uint16_t>(block.sample)) ==
                  1 &&
              m_tiff.messages().empty());
        if (bWanted && !bStraight) {
            unpack(block, y, row);
        }
        check(m_progress.goesOnAfter(rowBytes()));
    }
}

void TiffPageDecoder::decodeWhole(const Block& block)
{
    const std::uint32_t index = indexOf(block);
    const AxisPart wanted = commonPart(region().y, {block.y, block.height});
    const bool bStraight = goesStraight() && wanted.size == block.height;
    const unsigned long bytes = rowBytes() * (m_page.bTiled ? m_page.blockHeight : block.height);
    if (!bStraight) {
        m_scratch.resize(rowBytes() * m_page.blockHeight);
    }
    std::byte* const target =
        bStraight ? m_target.accessRow(block.y, m_place.c + block.sample, m_place) : m_scratch.data();
    const auto asked = static_cast<tmsize_t>(bytes);
    const tmsize_t got = m_page.bTiled ? TIFFReadEncodedTile(m_tiff, index, target, asked)
                                       : TIFFReadEncodedStrip(m_tiff, index, target, asked);
    // Decoders that find damage may go on all the same, having told of it.
    check(got == asked && m_tiff.messages().empty());
    check(m_progress.goesOnAfter(bytes));
    for (unsigned long y = wanted.first; !bStraight && y < wanted.end(); ++y) {
        unpack(block, y, target + (y - block.y) * rowBytes());
    }
}

// What the region holds of a row of a block.
void TiffPageDecoder::unpack(const Block& block, unsigned long y, const std::byte* row)
{
    const AxisPart columns = commonPart(region().x, {block.x, m_page.blockWidth});
    const unsigned samples = m_page.bSeparate ? 1 : m_page.samples;
    const SampleRow samplesOfRow = {row, samples, m_page.bits, columns.size, columns.first - block.x};
    const unsigned long targetBytes = (columns.first - region().x.first) * elementSize(m_form.type);
    const unsigned long firstChannel = m_page.bSeparate ? block.sample : 0;
    const AxisPart channels =
        commonPart(region().c, {m_place.c + firstChannel, m_page.bSeparate ? 1 : m_form.channels});
    for (unsigned long c = channels.first; c < channels.end(); ++c) {
        const unsigned long channel = c - m_place.c;
        unpackRow(samplesOfRow, static_cast<unsigned>(channel - firstChannel), channel, m_form, m_palette,
                  m_target.accessRow(y, c, m_place) + targetBytes);
    }
}

// Whole rows of the page are rows of the image.
bool TiffPageDecoder::goesStraight() const
{
    return !m_page.bTiled && (m_page.bSeparate || m_page.samples == 1) &&
           m_form.conversion == eSampleConversion::eCopy && m_form.inverted == 0 && region().x.size == m_page.width;
}

std::uint32_t TiffPageDecoder::indexOf(const Block& block) const
{
    const auto x = static_cast<std::uint32_t>(block.x), y = static_cast<std::uint32_t>(block.y);
    const auto sample = static_cast<std::uint16_t>(block.sample);
    const std::uint32_t index =
        m_page.bTiled ? TIFFComputeTile(m_tiff, x, y, 0, sample) : TIFFComputeStrip(m_tiff, y, sample);
    if (TIFFGetStrileOffset(m_tiff, index) == 0) { // libtiff would read the header as pixels
        m_tiff.messages().error = (m_page.bTiled ? "tile " : "strip ") + std::to_string(index) + " is missing";
        check(false);
    }
    return index;
}

unsigned long TiffPageDecoder::rowBytes() const
{
    return static_cast<unsigned long>(bytesOfRow(m_page));
}

// The whole page, whatever the region.
void TiffPageDecoder::decodeByLibrary(const TiffPage& page)
{
    const unsigned long width = page.width, height = page.height;
    std::vector<std::uint32_t> pixels(width * height);
    // In the orientation that they have: libtiff turns nothing, as elsewhere.
    check(TIFFReadRGBAImageOriented(m_tiff, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                                    pixels.data(), static_cast<int>(page.orientation), 1) == 1 &&
          m_tiff.messages().empty());
    const AxisPart channels = region().channelsOf(m_place, m_form.channels);
    for (unsigned long c = channels.first; c < channels.end(); ++c) {
        for (unsigned long y = region().y.first; y < region().y.end(); ++y) {
            const std::uint32_t* const from = pixels.data() + y * width + region().x.first;
            std::transform(from, from + region().x.size, m_target.accessRow(y, c, m_place),
                           [&](std::uint32_t pixel) { return static_cast<std::byte>(pixel >> (8 * (c - m_place.c))); });
        }
    }
    check(m_progress.goesOnAfter(width * height * 3));
}

void TiffPageDecoder::check(bool bDone) const
{
    if (!bDone) {
        m_tiff.raiseDamaged(m_place.page);
    }
}

} // namespace orlix::image::io
