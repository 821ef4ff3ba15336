// From planes to libpng's rows.
#include "ORLIXIPL/ORLIXImageIO/Png/PngWriter.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeWriter.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngText.h"
#include "ORLIXIPL/ORLIXImageIO/SamplePacking.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <algorithm>
#include <bit>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_mostRowsAtOnce = 64;
/// Rows beyond it are stored without a filter, since libpng tries all of them on a whole row before it compresses any,
/// and in small chunks, between which writing can be stopped.
constexpr unsigned long g_longRowBytes = 1ul << 20;
constexpr std::size_t g_chunkBytes = 1ul << 18;
constexpr std::size_t g_chunkBytesOfLongRows = 1ul << 13;

void writeBytes(png_structp png, png_bytep source, std::size_t bytes)
{
    auto& output = *static_cast<PngOutput*>(png_get_io_ptr(png));
    if (!output.file.write(output.position, source, bytes)) {
        png_error(png, "the system refused"); // the file knows why
    }
    output.position += bytes;
    if (!output.progress.goesOnAfter(bytes)) {
        png_error(png, "it was stopped");
    }
}

int colorTypeOf(unsigned long channels)
{
    constexpr int types[] = {PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA, PNG_COLOR_TYPE_RGB,
                             PNG_COLOR_TYPE_RGB_ALPHA};
    return types[channels - 1];
}

} // namespace

void checkSuitableForPng(const BaseImageGeometry& geometry, const std::string& file)
{
    const eImageBufferType type = geometry.getBufferType();
    const bool bBinary = type == eImageBufferType::eBufferBinary;
    constexpr unsigned long largestSide = 0x7fffffff;
    if (!canHold(eImageFileFormat::ePng, type) || geometry.getSizeZ() != 1 || geometry.getSizeT() != 1 ||
        geometry.getSizeC() > (bBinary ? 1 : 4) || geometry.getSizeX() > largestSide ||
        geometry.getSizeY() > largestSide) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eUnsuitableForPng, file, geometry.toString());
    }
}

PngWriter::PngWriter(TemporaryFile& file, const BaseImage& image, const ProgressFunction& function)
    : m_image(image), m_progress(function, image.getGeometry().getNbPlans()), m_output{file, m_progress},
      m_handle(&m_output, writeBytes)
{}

void PngWriter::write()
{
    writeHeader();
    writeRows();
    if (!guarded(m_handle.png(), [&] { png_write_end(m_handle.png(), nullptr); })) {
        raiseFailed();
    }
    m_progress.addPlans(m_image.getGeometry().getNbPlans());
    m_progress.goesOn();
    m_progress.throwIfStopped(eORLIXImageIOMessage::eWritingStopped, m_output.file.getTargetName());
}

void PngWriter::writeHeader()
{
    const png_structp png = m_handle.png();
    const png_infop info = m_handle.info();
    const std::string description = omeXmlOf(m_image, m_image.getSizeC(), true);
    const unsigned long elementBytes = elementSize(m_image.getBufferType());
    const int bits =
        m_image.getBufferType() == eImageBufferType::eBufferBinary ? 1 : static_cast<int>(8 * elementBytes);
    const bool bLongRows =
        packedRowBytes(m_image.getBufferType(), m_image.getSizeX(), m_image.getSizeC()) > g_longRowBytes;
    png_uint_32 perMetreX = 0, perMetreY = 0;
    const bool bResolution = perMetreOf(m_image.getGeometricCalibration(), perMetreX, perMetreY);
    const bool bWritten = guarded(png, [&] {
        png_set_user_limits(png, 0x7fffffff, 0x7fffffff);
        png_set_compression_buffer_size(png, bLongRows ? g_chunkBytesOfLongRows : g_chunkBytes);
        if (bLongRows) {
            png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
        }
        png_set_IHDR(png, info, static_cast<png_uint_32>(m_image.getSizeX()),
                     static_cast<png_uint_32>(m_image.getSizeY()), bits, colorTypeOf(m_image.getSizeC()),
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (bResolution) {
            setResolution(png, info, perMetreX, perMetreY);
        }
        setOmeText(png, info, description.data(), description.size());
        png_write_info(png, info);
        if (bits == 16 && std::endian::native == std::endian::little) {
            png_set_swap(png);
        }
    });
    if (!bWritten) {
        raiseFailed();
    }
}

void PngWriter::writeRows()
{
    const png_structp png = m_handle.png();
    const unsigned long width = m_image.getSizeX(), channels = m_image.getSizeC();
    const unsigned long rowBytes = packedRowBytes(m_image.getBufferType(), width, channels);
    const unsigned long held =
        std::min(std::clamp(g_progressBytes / rowBytes, 1ul, g_mostRowsAtOnce), m_image.getSizeY());
    std::vector<std::byte> buffer(held * rowBytes);
    std::vector<png_bytep> rows(held);
    for (unsigned long row = 0; row < held; ++row) {
        rows[row] = reinterpret_cast<png_bytep>(buffer.data() + row * rowBytes);
    }
    for (unsigned long y = 0; y < m_image.getSizeY(); y += held) {
        const unsigned long count = std::min(held, m_image.getSizeY() - y);
        packBlock(m_image, {0, y, width, count, 0, 0, 0, channels}, buffer.data(), rowBytes);
        if (!guarded(png, [&] { png_write_rows(png, rows.data(), static_cast<png_uint_32>(count)); })) {
            raiseFailed();
        }
        if (!m_progress.goesOnAfter(count * rowBytes)) {
            m_progress.throwIfStopped(eORLIXImageIOMessage::eWritingStopped, m_output.file.getTargetName());
        }
    }
}

void PngWriter::raiseFailed() const
{
    m_progress.throwIfStopped(eORLIXImageIOMessage::eWritingStopped, m_output.file.getTargetName());
    const std::string system = m_output.file.getError();
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eWriteFailed, m_output.file.getTargetName(),
                                system.empty() ? m_handle.getError() : system);
}

} // namespace orlix::image::io
