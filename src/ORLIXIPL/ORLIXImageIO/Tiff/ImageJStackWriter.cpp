// Directories first, then the pixels of all pages without a gap.
#include "ORLIXIPL/ORLIXImageIO/Tiff/ImageJStackWriter.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageJWriter.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/ByteSwap.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/DirectoryText.h"

#include <tiff.h>

#include <algorithm>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_headerBytes = 8;
constexpr unsigned long g_pieceBytes = 1ul << 20;

// So that the pixels begin where those of any type may.
unsigned long roundedUp(unsigned long offset)
{
    return (offset + 15) / 16 * 16;
}

} // namespace

ImageJStackWriter::ImageJStackWriter(TemporaryFile& file, const BaseImage& image, const TiffLayout& layout,
                                     const ProgressFunction& function)
    : m_file(file), m_image(image), m_layout(layout), m_progress(function, image.getGeometry().getNbPlans()),
      m_rowBytes(packedRowBytes(image.getBufferType(), image.getSizeX(), layout.samples, layout.packing)),
      m_pageBytes(m_rowBytes * image.getSizeY()), m_description(imageJDescriptionOf(image, layout.samples))
{}

void ImageJStackWriter::write()
{
    const unsigned long pages = m_image.getSizeZ() * m_image.getSizeT() * (m_image.getSizeC() / m_layout.samples);
    std::string start = directoriesOf(pages);
    if (start.empty()) {
        start = directoriesOf(1);
    }
    put(0, start.data(), start.size());
    unsigned long offset = start.size();
    for (unsigned long t = 0; t < m_image.getSizeT(); ++t) {
        for (unsigned long z = 0; z < m_image.getSizeZ(); ++z) {
            for (unsigned long c = 0; c < m_image.getSizeC(); c += m_layout.samples) {
                writePage(offset, z, c, t);
                offset += m_pageBytes;
                m_progress.addPlans(m_layout.samples);
                check(m_progress.goesOn());
            }
        }
    }
}

// All that stands before the pixels; nothing where the pixels of the last page lie too far behind.
std::string ImageJStackWriter::directoriesOf(unsigned long pages) const
{
    const auto resolution = imageJResolutionOf(m_image.getGeometricCalibration());
    const auto directoryOf = [&](unsigned long page, unsigned long pixels) {
        DirectoryText directory(m_layout.bBigEndian);
        directory.addLong(TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(m_image.getSizeX()));
        directory.addLong(TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(m_image.getSizeY()));
        directory.addShorts(TIFFTAG_BITSPERSAMPLE, std::vector<std::uint16_t>(m_layout.samples, m_layout.bits));
        directory.addShorts(TIFFTAG_COMPRESSION, {COMPRESSION_NONE});
        directory.addShorts(TIFFTAG_PHOTOMETRIC, {m_layout.samples == 1 ? std::uint16_t(PHOTOMETRIC_MINISBLACK)
                                                                        : std::uint16_t(PHOTOMETRIC_RGB)});
        if (page == 0) {
            directory.addText(TIFFTAG_IMAGEDESCRIPTION, m_description);
        }
        directory.addLong(TIFFTAG_STRIPOFFSETS, static_cast<std::uint32_t>(pixels + page * m_pageBytes));
        directory.addShorts(TIFFTAG_SAMPLESPERPIXEL, {static_cast<std::uint16_t>(m_layout.samples)});
        directory.addLong(TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(m_image.getSizeY()));
        directory.addLong(TIFFTAG_STRIPBYTECOUNTS, static_cast<std::uint32_t>(m_pageBytes));
        if (resolution) {
            directory.addRational(TIFFTAG_XRESOLUTION, resolution->perUnitX);
            directory.addRational(TIFFTAG_YRESOLUTION, resolution->perUnitY);
            directory.addShorts(TIFFTAG_RESOLUTIONUNIT, {resolutionUnitOf(*resolution)});
        }
        directory.addShorts(TIFFTAG_SAMPLEFORMAT, std::vector<std::uint16_t>(m_layout.samples, m_layout.sampleFormat));
        return directory;
    };
    // Where pixels begin doesn't change how long directories are.
    const std::size_t first = directoryOf(0, 0).toString(0, true).size();
    const std::size_t others = directoryOf(1, 0).toString(0, true).size();
    const unsigned long pixels = roundedUp(g_headerBytes + first + others * (pages - 1));
    if (pages > 1 && pixels + m_pageBytes * pages > 0xffffffffu) {
        return {};
    }
    const DirectoryText numbers(m_layout.bBigEndian);
    std::string text = (m_layout.bBigEndian ? "MM" : "II") + numbers.number(2, 42) + numbers.number(4, g_headerBytes);
    for (unsigned long page = 0; page < pages; ++page) {
        text += directoryOf(page, pixels).toString(static_cast<std::uint32_t>(text.size()), page + 1 == pages);
    }
    text.resize(pixels);
    return text;
}

void ImageJStackWriter::writePage(unsigned long offset, unsigned long z, unsigned long c, unsigned long t)
{
    const eImageBufferType& type = m_image.getBufferType();
    const bool bSwapped = m_layout.bForeignOrder && m_layout.bits > 8;
    const bool bStraight =
        m_layout.samples == 1 && !bSwapped && isCopied(type, m_layout.packing) && hasDensePlans(m_image, t);
    const unsigned long pieceRows = std::clamp(g_pieceBytes / m_rowBytes, 1ul, m_image.getSizeY());
    for (unsigned long y = 0; y < m_image.getSizeY(); y += pieceRows) {
        const unsigned long rows = std::min(pieceRows, m_image.getSizeY() - y);
        const std::byte* source = m_image.accessRow(y, z, c, t);
        if (!bStraight) {
            m_scratch.resize(pieceRows * m_rowBytes);
            packBlock(m_image, {0, y, m_image.getSizeX(), rows, z, c, t, m_layout.samples}, m_scratch.data(),
                      m_rowBytes, m_layout.packing);
            if (bSwapped) {
                swapElements(m_scratch.data(), rows * m_rowBytes, m_layout.bits / 8u);
            }
            source = m_scratch.data();
        }
        put(offset + y * m_rowBytes, source, rows * m_rowBytes);
        check(m_progress.goesOnAfter(rows * m_rowBytes));
    }
}

void ImageJStackWriter::put(unsigned long offset, const void* source, unsigned long bytes)
{
    check(m_file.write(offset, source, bytes));
}

void ImageJStackWriter::check(bool bDone) const
{
    if (!bDone) {
        m_progress.throwIfStopped(eORLIXImageIOMessage::eWritingStopped, m_file.getTargetName());
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eWriteFailed, m_file.getTargetName(),
                                    m_file.getError());
    }
}

} // namespace orlix::image::io
