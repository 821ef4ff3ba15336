// Reading a TIFF file: headers first, then pixels.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"
#include "ORLIXIPL/ORLIXImageIO/ReadOptions.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPageDecoder.h"

namespace orlix::image::io {

/// One file, used by one thread. The constructor reads and checks all headers; it throws ORLIXImageIOException where
/// the file is damaged, not supported, or passes a limit.
class TiffReader
{
public:
    TiffReader(ByteSource& source, const ReadLimits& limits);

    ImageFileInfo getInfo() const;
    /// Throws ORLIXImageIOException where pixels are damaged or reading was stopped. To be called once.
    ImagePtr read(const ProgressFunction& function);

private:
    const TiffPage& firstPage() const { return m_pages[m_firstPage]; }
    void readMetadata(const TiffFileFacts& file);
    void checkPages(const ReadLimits& limits);
    void readPages(BaseImage& image, Progress& progress);
    void goToPage(unsigned long page);

    ByteSource& m_source;
    TiffHandle m_tiff;
    std::vector<TiffPage> m_pages;
    unsigned long m_currentPage = 0; ///< where libtiff stands
    unsigned long m_firstPage = 0;   ///< that is not left out
    PixelForm m_form;                ///< of the first page; the others give the same elements
    ImageMetadata m_metadata;
    BaseImageGeometry m_geometry;
};

} // namespace orlix::image::io
