// From libpng's rows to planes.
#include "ORLIXIPL/ORLIXImageIO/Png/PngReader.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeMetadata.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_mostRowsAtOnce = 64;
constexpr unsigned long g_deflateRatio = 1040;

/// Chunks that say nothing about the elements, or that are read without libpng: it takes memory for whatever their
/// lengths and their compressed content claim.
constexpr png_byte g_skippedChunks[] = "bKGD\0cHRM\0eXIf\0gAMA\0hIST\0iCCP\0iTXt\0oFFs\0pCAL\0sBIT\0sCAL\0sPLT\0sRGB\0"
                                       "tEXt\0tIME\0zTXt";

/// Looks at the head of a chunk before libpng acts on it.
void passChunk(png_structp png, PngInput& input, const png_byte* head)
{
    constexpr unsigned long g_headBytes = 8, g_checkBytes = 4;
    const PngChunk chunk = {input.position + g_headBytes, png_get_uint_32(head), {head[4], head[5], head[6], head[7]}};
    const unsigned long size = input.source.getSize();
    // Pixels are taken as they come, so a file that is cut short there still tells what it holds.
    if (std::memcmp(chunk.type, "IDAT", sizeof chunk.type) != 0 &&
        (chunk.start > size || size - chunk.start < chunk.bytes)) {
        png_error(png, "a chunk is longer than the file");
    }
    if (input.description.bytes == 0 && holdsOme(input.source, chunk)) {
        input.description = chunk;
    }
    input.nextChunk = chunk.start + chunk.bytes + g_checkBytes;
}

void readBytes(png_structp png, png_bytep target, std::size_t bytes)
{
    auto& input = *static_cast<PngInput*>(png_get_io_ptr(png));
    const unsigned long got = input.source.read(input.position, target, bytes);
    if (got != bytes) {
        png_error(png, "it ends early");
    }
    if (input.position == input.nextChunk && bytes == 8) {
        passChunk(png, input, target);
    }
    input.position += got;
    if (input.progress && !input.progress->goesOnAfter(bytes)) {
        png_error(png, "it was stopped");
    }
}

template <class T>
void takeChannel(const std::byte* from, unsigned long step, unsigned long count, std::byte* to)
{
    for (unsigned long x = 0; x < count; ++x) {
        std::memcpy(to + x * sizeof(T), from + x * step * sizeof(T), sizeof(T));
    }
}

} // namespace

PngReader::PngReader(ByteSource& source, const ReadLimits& limits, const std::optional<RegionWish>& wish)
    : m_input{source}, m_handle(&m_input, readBytes)
{
    readHeader();
    const WideSize rowBytes = (WideSize(m_width) * png_get_channels(m_handle.png(), m_handle.info()) * m_bits + 7) / 8;
    if (limits.bMustBePlausible) {
        checkPlausibility(0, rowBytes * m_height, source.getSize(), g_deflateRatio, source.getName());
    }
    chooseElements();
    readMetadata();
    m_region = wish ? regionOf(m_geometry, *wish, source.getName()) : wholeImage(m_geometry);
    m_readGeometry = wish ? geometryOf(m_region, m_geometry) : m_geometry;
    m_readCalibration = wish ? calibrationOf(m_region, m_geometry, m_metadata.calibration) : m_metadata.calibration;
    const WideSize scratchRow = WideSize(m_width) * m_samples * elementSize(m_metadata.type);
    checkLimits(m_readGeometry, goesStraight() ? 0 : scratchRow * bufferRows(), limits, source.getName());
}

void PngReader::readHeader()
{
    const png_structp png = m_handle.png();
    const png_infop info = m_handle.info();
    const bool bRead = guarded(png, [&] {
        png_set_user_limits(png, 0x7fffffff, 0x7fffffff); // our own limits follow
        png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, g_skippedChunks, sizeof g_skippedChunks / 5);
        png_read_info(png, info);
        png_get_IHDR(png, info, &m_width, &m_height, &m_bits, &m_colorType, &m_interlacing, nullptr, nullptr);
    });
    if (!bRead) {
        raiseDamaged();
    }
    png_colorp palette = nullptr;
    int size = 0;
    if (m_colorType == PNG_COLOR_TYPE_PALETTE && png_get_PLTE(png, info, &palette, &size) != 0) {
        m_bGreyPalette = std::all_of(palette, palette + size, [](const png_color& color) {
            return color.red == color.green && color.red == color.blue;
        });
    }
}

// Of the image, from the header alone: libpng would take memory for its rows first.
void PngReader::chooseElements()
{
    m_bTransparency = png_get_valid(m_handle.png(), m_handle.info(), PNG_INFO_tRNS) != 0;
    const bool bBinary = m_colorType == PNG_COLOR_TYPE_GRAY && m_bits == 1 && !m_bTransparency;
    const bool bAlpha = (m_colorType & PNG_COLOR_MASK_ALPHA) != 0 || m_bTransparency;
    m_samples = ((m_colorType & PNG_COLOR_MASK_COLOR) != 0 ? 3 : 1) + (bAlpha ? 1 : 0);
    for (unsigned long sample = 0; sample < m_samples; ++sample) {
        if (!m_bGreyPalette || sample == 0 || sample == 3) { // grey, or red for all three, and alpha
            m_channelSamples.push_back(sample);
        }
    }
    m_metadata.type = bBinary        ? eImageBufferType::eBufferBinary
                      : m_bits == 16 ? eImageBufferType::UInt16
                                     : eImageBufferType::UInt8;
}

void PngReader::chooseTransformations()
{
    const png_structp png = m_handle.png();
    const bool bChosen = guarded(png, [&] {
        if (m_colorType == PNG_COLOR_TYPE_PALETTE) {
            png_set_palette_to_rgb(png);
        } else if (m_bits == 1 && m_samples == 1) {
            png_set_packing(png);
        } else if (m_bits < 8) {
            png_set_expand_gray_1_2_4_to_8(png);
        }
        if (m_bTransparency) {
            png_set_tRNS_to_alpha(png);
        }
        if (m_bits == 16 && std::endian::native == std::endian::little) {
            png_set_swap(png);
        }
        png_set_interlace_handling(png);
        png_read_update_info(png, m_handle.info());
        if (png_get_channels(png, m_handle.info()) != m_samples || // what rows are made for
            png_get_bit_depth(png, m_handle.info()) != static_cast<int>(8 * elementSize(m_metadata.type))) {
            png_error(png, "its header contradicts itself");
        }
    });
    if (!bChosen) {
        raiseDamaged();
    }
}

void PngReader::readMetadata()
{
    PageFacts facts;
    facts.file = m_input.source.getName();
    facts.sizeX = m_width;
    facts.sizeY = m_height;
    facts.samples = facts.channels = m_channelSamples.size();
    facts.type = m_metadata.type;
    const std::string description = omeTextOf(m_input.source, m_input.description);
    if (isOmeDescription(description)) {
        m_metadata = metadataOfOme(description, facts);
    } else {
        m_metadata = metadataOfPages(facts);
        m_metadata.calibration = calibrationOf(resolutionOf(m_handle.png(), m_handle.info()));
    }
    ColorGeometry color;
    color.initChannels(m_metadata.sizeC);
    m_geometry = {m_metadata.type, m_width, m_height, m_metadata.volume, color, m_metadata.temporal};
}

ImageFileInfo PngReader::getInfo() const
{
    ImageFileInfo info;
    info.geometry = m_geometry;
    info.calibration = m_metadata.calibration;
    info.format = eImageFileFormat::ePng;
    info.compression = "Deflate";
    info.metadata = m_metadata.kind;
    info.bitsPerSample = static_cast<unsigned long>(m_bits);
    info.fileBytes = m_input.source.getSize();
    info.bBigEndian = true;
    info.ignored.images = m_metadata.furtherImages;
    info.ignored.units = m_metadata.ignoredUnits;
    return info;
}

ImagePtr PngReader::read(const ProgressFunction& function)
{
    Progress progress(function, m_readGeometry.getNbPlans());
    chooseTransformations();
    const ImagePtr image = createImage(m_readGeometry);
    image->setGeometricCalibration(m_readCalibration);
    if (m_region.isEmpty()) {
        return image;
    }
    m_input.progress = &progress;
    readBands(*image, progress);
    // The end carries the check sums of the last pixels.
    if (m_region.y.end() == m_height && !guarded(m_handle.png(), [&] { png_read_end(m_handle.png(), nullptr); })) {
        progress.throwIfStopped(eORLIXImageIOMessage::eReadingStopped, m_input.source.getName());
        raiseDamaged();
    }
    progress.addPlans(m_readGeometry.getNbPlans());
    progress.goesOn();
    progress.throwIfStopped(eORLIXImageIOMessage::eReadingStopped, m_input.source.getName());
    return image;
}

// Whole rows of the file are rows of the image.
bool PngReader::goesStraight() const
{
    return m_samples == 1 && m_region.x.size == m_width;
}

unsigned long PngReader::bufferRows() const
{
    return m_interlacing == PNG_INTERLACE_NONE ? std::min(g_mostRowsAtOnce, m_region.y.size) : m_region.y.size;
}

// Between two questions whether to go on.
unsigned long PngReader::rowsAtOnce() const
{
    return std::clamp(g_progressBytes / (m_width * m_samples * elementSize(m_metadata.type)), 1ul, g_mostRowsAtOnce);
}

// Band by band of the region's rows: an interlaced file passes over all of its rows several times, so they are one.
void PngReader::readBands(BaseImage& image, Progress& progress)
{
    const AxisPart& wanted = m_region.y;
    const bool bStraight = goesStraight(), bInterlaced = m_interlacing != PNG_INTERLACE_NONE;
    const unsigned long rowBytes = m_width * m_samples * elementSize(m_metadata.type);
    const unsigned long held = bStraight ? wanted.size : bufferRows();
    std::vector<std::byte> buffer(bStraight ? 0 : held * rowBytes);
    std::vector<png_bytep> rows(held);
    for (unsigned long row = 0; row < held; ++row) {
        rows[row] =
            reinterpret_cast<png_bytep>(bStraight ? image.accessRow(row, 0, 0, 0) : buffer.data() + row * rowBytes);
    }
    const int passes = bInterlaced ? PNG_INTERLACE_ADAM7_PASSES : 1;
    for (unsigned long y = 0; y < wanted.size; y += held) {
        const unsigned long count = std::min(held, wanted.size - y);
        for (int pass = 0; pass < passes; ++pass) {
            skipRows(y == 0 ? wanted.first : 0, progress);
            for (unsigned long row = 0; row < count; row += rowsAtOnce()) {
                readRows(rows.data() + row, std::min(rowsAtOnce(), count - row), progress);
            }
            skipRows(bInterlaced ? m_height - wanted.end() : 0, progress);
        }
        for (unsigned long row = 0; !bStraight && row < count; ++row) {
            takeRow(buffer.data() + row * rowBytes, image, y + row);
        }
    }
}

void PngReader::takeRow(const std::byte* from, BaseImage& image, unsigned long y) const
{
    const unsigned long elementBytes = elementSize(m_metadata.type);
    for (unsigned long c = 0; c < m_region.c.size; ++c) {
        const unsigned long sample = m_region.x.first * m_samples + m_channelSamples[m_region.c.first + c];
        std::byte* const to = image.accessRow(y, 0, c, 0);
        if (elementBytes == 1) {
            takeChannel<png_byte>(from + sample, m_samples, m_region.x.size, to);
        } else {
            takeChannel<png_uint_16>(from + sample * elementBytes, m_samples, m_region.x.size, to);
        }
    }
}

// Decodes rows that go nowhere.
void PngReader::skipRows(unsigned long count, Progress& progress)
{
    std::array<png_bytep, g_mostRowsAtOnce> nowhere{};
    for (unsigned long row = 0; row < count; row += rowsAtOnce()) {
        readRows(nowhere.data(), std::min(rowsAtOnce(), count - row), progress);
    }
}

void PngReader::readRows(png_bytep* rows, unsigned long count, Progress& progress)
{
    const png_structp png = m_handle.png();
    if (!guarded(png, [&] { png_read_rows(png, rows, nullptr, static_cast<png_uint_32>(count)); })) {
        progress.throwIfStopped(eORLIXImageIOMessage::eReadingStopped, m_input.source.getName());
        raiseDamaged();
    }
    if (!progress.goesOnAfter(count * m_width * m_samples * elementSize(m_metadata.type))) {
        progress.throwIfStopped(eORLIXImageIOMessage::eReadingStopped, m_input.source.getName());
    }
}

void PngReader::raiseDamaged() const
{
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eDamagedPng, m_input.source.getName(),
                                m_handle.getError());
}

} // namespace orlix::image::io
