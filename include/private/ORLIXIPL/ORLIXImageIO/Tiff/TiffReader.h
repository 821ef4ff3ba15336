// Reading a TIFF file: headers first, then pixels.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"
#include "ORLIXIPL/ORLIXImageIO/ReadOptions.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffFileSet.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPageDecoder.h"

#include <optional>
#include <span>

namespace orlix::image::io {

/// One image, or a region of it, used by one thread. The constructor reads and checks all headers; it throws
/// ORLIXImageIOException where the file, or another one that holds a part of the image, is damaged, not supported, or
/// passes a limit, and where the region doesn't lie in the image.
class TiffReader
{
public:
    /// Reads the whole image without a wish.
    TiffReader(ByteSource& source, const ReadLimits& limits, const std::optional<RegionWish>& wish = std::nullopt);

    ImageFileInfo getInfo() const; ///< of the whole image
    /// Throws ORLIXImageIOException where pixels are damaged or reading was stopped. To be called once.
    ImagePtr read(const ProgressFunction& function);

private:
    const std::vector<TiffPage>& pages() const { return m_files.first().getPages(); }
    const TiffPage& firstPage() const { return pages()[m_firstPage]; }
    void readMetadata();
    ImageFileInfo::Ignored whatIsIgnored() const;
    void chooseRegion(const std::optional<RegionWish>& wish);
    void checkPages(const ReadLimits& limits);
    void readPages(const RegionTarget& target, Progress& progress, std::span<const PagePlace> places);

    TiffFileSet m_files;
    unsigned long m_firstPage = 0; ///< of the file that was asked for; it is not left out
    PixelForm m_form;              ///< of the first page; the others give the same elements
    ImageMetadata m_metadata;
    BaseImageGeometry m_geometry; ///< of the whole image
    ImageRegion m_region{};
    BaseImageGeometry m_readGeometry; ///< and calibration: of the image that `read` gives
    CalibrationPtr m_readCalibration;
};

} // namespace orlix::image::io
