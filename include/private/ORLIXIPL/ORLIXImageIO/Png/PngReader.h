// Reading a PNG file: header first, then pixels.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"
#include "ORLIXIPL/ORLIXImageIO/ImageRegion.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngHandle.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngText.h"
#include "ORLIXIPL/ORLIXImageIO/Progress.h"
#include "ORLIXIPL/ORLIXImageIO/ReadOptions.h"

#include <optional>
#include <vector>

namespace orlix::image::io {

/// What libpng's read callback works on.
struct PngInput
{
    ByteSource& source;
    unsigned long position = 0;
    unsigned long nextChunk = 8;  ///< place of the next chunk that hasn't been reached yet
    PngChunk description = {};    ///< the first that holds OME-XML
    Progress* progress = nullptr; ///< asked between reads; may be null
};

/// One file, or a region of its image, used by one thread. The constructor reads and checks everything before the
/// pixels; it throws ORLIXImageIOException where the file is damaged or passes a limit.
class PngReader
{
public:
    /// Reads the whole image without a wish.
    PngReader(ByteSource& source, const ReadLimits& limits, const std::optional<RegionWish>& wish = std::nullopt);

    ImageFileInfo getInfo() const; ///< of the whole image
    /// Throws ORLIXImageIOException where pixels are damaged or reading was stopped. To be called once.
    ImagePtr read(const ProgressFunction& function);

private:
    void readHeader();
    void chooseElements();
    void chooseTransformations();
    void readMetadata();
    unsigned long bufferRows() const;
    bool goesStraight() const;
    void readBands(BaseImage& image, Progress& progress);
    void takeRow(const std::byte* from, BaseImage& image, unsigned long y) const;
    void skipRows(unsigned long count, Progress& progress);
    void readRows(png_bytep* rows, unsigned long count, Progress& progress);
    unsigned long rowsAtOnce() const;
    [[noreturn]] void raiseDamaged() const;

    PngInput m_input;
    PngReadHandle m_handle;
    png_uint_32 m_width = 0;
    png_uint_32 m_height = 0;
    int m_bits = 0; ///< of a sample in the file
    int m_colorType = 0;
    int m_interlacing = 0;
    bool m_bGreyPalette = false;
    bool m_bTransparency = false;                ///< a colour or palette entries that are transparent
    unsigned long m_samples = 1;                 ///< of a decoded pixel
    std::vector<unsigned long> m_channelSamples; ///< the sample that each channel comes from
    ImageMetadata m_metadata;
    BaseImageGeometry m_geometry; ///< of the whole image
    ImageRegion m_region{};
    BaseImageGeometry m_readGeometry; ///< of the image that `read` gives
    CalibrationPtr m_readCalibration;
};

} // namespace orlix::image::io
