// Pages, strips and tiles through libtiff.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffWriter.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageJWriter.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeWriter.h"

#include <algorithm>

namespace orlix::image::io {

namespace {

/// What a codec gathers before it hands it on; writing can be stopped in between.
constexpr tmsize_t g_codedBytes = 16 << 10;

std::string modeOf(const TiffLayout& layout)
{
    return std::string("w") + (layout.bBigEndian ? "b" : "l") + (layout.bBigTiff ? "8" : "4");
}

} // namespace

TiffWriter::TiffWriter(TemporaryFile& file, const BaseImage& image, const TiffLayout& layout,
                       const ProgressFunction& function)
    : m_file(file), m_image(image), m_layout(layout), m_progress(function, image.getGeometry().getNbPlans()),
      m_tiff(file, modeOf(layout).c_str(), m_progress)
{}

void TiffWriter::write()
{
    const unsigned long sizeZ = m_image.getSizeZ(), sizeC = m_image.getSizeC() / m_layout.samples;
    for (unsigned long t = 0; t < m_image.getSizeT(); ++t) {
        for (unsigned long page = 0; page < sizeZ * sizeC; ++page) { // z fastest, in ImageJ's files c
            const unsigned long z = m_layout.bImageJ ? page / sizeC : page % sizeZ;
            const unsigned long c = m_layout.bImageJ ? page % sizeC : page / sizeZ;
            setFields(page == 0 && t == 0);
            writePage(z, c * m_layout.samples, t);
            check(TIFFWriteDirectory(m_tiff) == 1);
            m_progress.addPlans(m_layout.samples);
            check(m_progress.goesOn());
        }
    }
    check(TIFFFlush(m_tiff) == 1);
}

void TiffWriter::setFields(bool bFirst)
{
    const auto set = [&](std::uint32_t tag, auto... values) { check(TIFFSetField(m_tiff, tag, values...) == 1); };
    set(TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(m_image.getSizeX()));
    set(TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(m_image.getSizeY()));
    set(TIFFTAG_BITSPERSAMPLE, m_layout.bits);
    set(TIFFTAG_SAMPLESPERPIXEL, static_cast<std::uint16_t>(m_layout.samples));
    set(TIFFTAG_SAMPLEFORMAT, m_layout.sampleFormat);
    set(TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    set(TIFFTAG_COMPRESSION, m_layout.compression);
    set(TIFFTAG_PHOTOMETRIC, m_layout.samples == 1 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB);
    if (m_layout.samples == 4) {
        const std::uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
        set(TIFFTAG_EXTRASAMPLES, 1, &alpha);
    }
    if (m_layout.predictor != PREDICTOR_NONE) {
        set(TIFFTAG_PREDICTOR, m_layout.predictor);
    }
    if (m_layout.bTiled) {
        set(TIFFTAG_TILEWIDTH, static_cast<std::uint32_t>(m_layout.blockWidth));
        set(TIFFTAG_TILELENGTH, static_cast<std::uint32_t>(m_layout.blockHeight));
    } else {
        set(TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(m_layout.blockHeight));
    }
    if (const auto resolution = resolutionToTell()) {
        set(TIFFTAG_XRESOLUTION, resolution->perUnitX);
        set(TIFFTAG_YRESOLUTION, resolution->perUnitY);
        set(TIFFTAG_RESOLUTIONUNIT, resolutionUnitOf(*resolution));
    }
    if (bFirst) {
        const std::string description = m_layout.bImageJ ? imageJDescriptionOf(m_image, m_layout.samples)
                                                         : omeXmlOf(m_image, m_layout.samples, m_layout.bBigEndian);
        set(TIFFTAG_IMAGEDESCRIPTION, description.c_str());
        set(TIFFTAG_SOFTWARE, "ORLIX");
    }
}

// Beside OME-XML for programs that don't know it.
std::optional<Resolution> TiffWriter::resolutionToTell() const
{
    const auto& calibration = m_image.getGeometricCalibration();
    if (m_layout.bImageJ) {
        return imageJResolutionOf(calibration);
    }
    const auto metres = calibration ? metresIn(calibration->getUnit()) : std::nullopt;
    if (!metres) {
        return std::nullopt;
    }
    const Resolution resolution = {0.01 / (calibration->getPixelSizeX() * *metres),
                                   0.01 / (calibration->getPixelSizeY() * *metres), "cm"};
    const auto fits = [](double value) { return value >= 1e-6 && value <= 4e9; };
    return fits(resolution.perUnitX) && fits(resolution.perUnitY) ? std::optional(resolution) : std::nullopt;
}

void TiffWriter::writePage(unsigned long z, unsigned long c, unsigned long t)
{
    check(m_layout.compression == COMPRESSION_NONE || TIFFWriteBufferSetup(m_tiff, nullptr, g_codedBytes) == 1);
    for (unsigned long y = 0; y < m_image.getSizeY(); y += m_layout.blockHeight) {
        for (unsigned long x = 0; x < m_image.getSizeX(); x += m_layout.blockWidth) {
            writeBlock({x, y, std::min(m_layout.blockWidth, m_image.getSizeX() - x),
                        std::min(m_layout.blockHeight, m_image.getSizeY() - y), z, c, t, m_layout.samples});
        }
    }
}

void TiffWriter::writeBlock(const PageBlock& block)
{
    const unsigned long rowBytes =
        packedRowBytes(m_image.getBufferType(), m_layout.blockWidth, m_layout.samples, m_layout.packing);
    const unsigned long rows = m_layout.bTiled ? m_layout.blockHeight : block.height;
    std::byte* source = nullptr;
    if (goesStraight(block.t)) {
        source = m_image.accessRow(block.y, block.z, block.c, block.t); // only read, see goesStraight
    } else {
        m_scratch.resize(rowBytes * m_layout.blockHeight);
        source = m_scratch.data();
        if (m_layout.bTiled && (block.width < m_layout.blockWidth || block.height < m_layout.blockHeight)) {
            std::ranges::fill(m_scratch, std::byte(0));
        }
        packBlock(m_image, block, source, rowBytes, m_layout.packing);
    }
    const auto x = static_cast<std::uint32_t>(block.x), y = static_cast<std::uint32_t>(block.y);
    if (!m_layout.bTiled && m_layout.compression != COMPRESSION_NONE) {
        for (std::uint32_t line = 0; line < rows; ++line) { // of one strip all the same
            check(TIFFWriteScanline(m_tiff, source + line * rowBytes, y + line, 0) == 1);
            check(m_progress.goesOnAfter(rowBytes));
        }
        return;
    }
    const auto bytes = static_cast<tmsize_t>(rowBytes * rows);
    const tmsize_t put = m_layout.bTiled
                             ? TIFFWriteEncodedTile(m_tiff, TIFFComputeTile(m_tiff, x, y, 0, 0), source, bytes)
                             : TIFFWriteEncodedStrip(m_tiff, TIFFComputeStrip(m_tiff, y, 0), source, bytes);
    check(put >= 0);
    check(m_progress.goesOnAfter(static_cast<unsigned long>(bytes)));
}

// libtiff swaps bytes and takes differences in the caller's memory, so only what it leaves alone may come from the
// image itself.
bool TiffWriter::goesStraight(unsigned long t) const
{
    return !m_layout.bTiled && m_layout.samples == 1 && isCopied(m_image.getBufferType(), m_layout.packing) &&
           !m_layout.bForeignOrder && m_layout.predictor == PREDICTOR_NONE && hasDensePlans(m_image, t);
}

void TiffWriter::check(bool bDone)
{
    if (bDone) {
        return;
    }
    m_progress.throwIfStopped(eORLIXImageIOMessage::eWritingStopped, m_file.getTargetName());
    const std::string system = m_file.getError();
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eWriteFailed, m_file.getTargetName(),
                                system.empty() ? m_tiff.messages().first() : system);
}

} // namespace orlix::image::io
