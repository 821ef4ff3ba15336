// Decoding pages.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPageDecoder.h"

#include <algorithm>

namespace orlix::image::io {

namespace {

// Of a whole strip or tile, from its sizes; libtiff's own function answers 0 for what overflows.
WideSize bytesOfBlock(const TiffPage& page)
{
    const unsigned samples = page.bSeparate ? 1 : page.samples;
    const WideSize rowBytes = (WideSize(page.blockWidth) * samples * page.bits + 7) / 8;
    return rowBytes * page.blockHeight;
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
    return form.conversion == eSampleConversion::eByLibrary ? WideSize(page.width) * page.height * 4
                                                            : bytesOfBlock(page);
}

void TiffPageDecoder::decode(const TiffPage& page, const PixelForm& form, const PagePlace& place)
{
    m_place = place;
    m_tiff.messages().clear();
    if (form.conversion == eSampleConversion::eByLibrary) {
        decodeByLibrary(page, place);
        return;
    }
    if (form.conversion == eSampleConversion::ePalette) {
        m_palette = paletteOf(m_tiff, page.bits);
        check(!m_palette[0].empty());
    }
    const unsigned passes = page.bSeparate ? page.samples : 1;
    for (unsigned sample = 0; sample < passes; ++sample) {
        for (unsigned long y = 0; y < page.height; y += page.blockHeight) {
            for (unsigned long x = 0; x < page.width; x += page.blockWidth) {
                decodeBlock(
                    page, form,
                    {x, y, std::min(page.blockWidth, page.width - x), std::min(page.blockHeight, page.height - y)},
                    sample);
            }
        }
    }
}

void TiffPageDecoder::decodeBlock(const TiffPage& page, const PixelForm& form, const Block& block, unsigned sample)
{
    const unsigned samples = page.bSeparate ? 1 : page.samples;
    const unsigned long rowBytes = (page.blockWidth * samples * page.bits + 7) / 8;
    const unsigned long elementBytes = elementSize(form.type);
    if (goesStraight(page, form)) {
        readBlock(page, block, sample, m_image.accessRow(block.y, m_place.z, m_place.c + sample, m_place.t), rowBytes);
        return;
    }
    m_scratch.resize(rowBytes * page.blockHeight);
    readBlock(page, block, sample, m_scratch.data(), rowBytes);

    const unsigned long firstChannel = page.bSeparate ? sample : 0;
    const unsigned long channels = page.bSeparate ? 1 : form.channels;
    for (unsigned long line = 0; line < block.height; ++line) {
        const SampleRow row = {m_scratch.data() + line * rowBytes, samples, page.bits, block.width};
        for (unsigned long channel = 0; channel < channels; ++channel) {
            std::byte* const target =
                m_image.accessRow(block.y + line, m_place.z, m_place.c + firstChannel + channel, m_place.t) +
                block.x * elementBytes;
            unpackRow(row, static_cast<unsigned>(channel), firstChannel + channel, form, m_palette, target);
        }
    }
}

bool TiffPageDecoder::goesStraight(const TiffPage& page, const PixelForm& form) const
{
    return !page.bTiled && (page.bSeparate || page.samples == 1) && form.conversion == eSampleConversion::eCopy &&
           form.inverted == 0;
}

void TiffPageDecoder::readBlock(const TiffPage& page, const Block& block, unsigned sample, std::byte* target,
                                unsigned long rowBytes)
{
    const auto x = static_cast<std::uint32_t>(block.x), y = static_cast<std::uint32_t>(block.y);
    const auto s = static_cast<std::uint16_t>(sample);
    const std::uint32_t index = page.bTiled ? TIFFComputeTile(m_tiff, x, y, 0, s) : TIFFComputeStrip(m_tiff, y, s);
    if (TIFFGetStrileOffset(m_tiff, index) == 0) { // libtiff would read the header as pixels
        m_tiff.messages().error = (page.bTiled ? "tile " : "strip ") + std::to_string(index) + " is missing";
        check(false);
    }
    if (comesByRows(page)) {
        for (std::uint32_t line = 0; line < block.height; ++line) {
            check(TIFFReadScanline(m_tiff, target + line * rowBytes, y + line, s) == 1 && m_tiff.messages().empty());
            check(m_progress.goesOnAfter(rowBytes));
        }
        return;
    }
    const unsigned long bytes = rowBytes * (page.bTiled ? page.blockHeight : block.height);
    const auto wanted = static_cast<tmsize_t>(bytes);
    const tmsize_t got = page.bTiled ? TIFFReadEncodedTile(m_tiff, index, target, wanted)
                                     : TIFFReadEncodedStrip(m_tiff, index, target, wanted);
    // Decoders that find damage may go on all the same, having told of it.
    check(got == wanted && m_tiff.messages().empty());
    check(m_progress.goesOnAfter(bytes));
}

void TiffPageDecoder::decodeByLibrary(const TiffPage& page, const PagePlace& place)
{
    const unsigned long width = m_image.getSizeX(), height = m_image.getSizeY();
    std::vector<std::uint32_t> pixels(width * height);
    // In the orientation that they have: libtiff turns nothing, as elsewhere.
    check(TIFFReadRGBAImageOriented(m_tiff, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                                    pixels.data(), static_cast<int>(page.orientation), 1) == 1 &&
          m_tiff.messages().empty());
    for (unsigned c = 0; c < 3; ++c) {
        for (unsigned long y = 0; y < height; ++y) {
            std::byte* const target = m_image.accessRow(y, place.z, place.c + c, place.t);
            std::transform(pixels.data() + y * width, pixels.data() + (y + 1) * width, target,
                           [&](std::uint32_t pixel) { return static_cast<std::byte>(pixel >> (8 * c)); });
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
