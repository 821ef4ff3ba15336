// Decoding the strips or tiles of a page into the plans of an image.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageMetadata.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/SampleUnpacking.h"

namespace orlix::image::io {

/// Working memory that decoding such a page takes, in bytes.
WideSize scratchBytesOf(const TiffPage& page, const PixelForm& form);

/// One file, page by page. Strips whose samples are the elements go straight to the plan; the image's rows touch.
class TiffPageDecoder
{
public:
    TiffPageDecoder(TiffHandle& tiff, Progress& progress, BaseImage& image)
        : m_tiff(tiff), m_progress(progress), m_image(image)
    {}

    /// Decodes the current page of the file. Throws ORLIXImageIOException where it is damaged or reading was stopped.
    void decode(const TiffPage& page, const PixelForm& form, const PagePlace& place);

private:
    struct Block
    {
        unsigned long x, y, width, height; ///< in the page, cut to it
    };

    void decodeByLibrary(const TiffPage& page, const PagePlace& place);
    void decodeBlock(const TiffPage& page, const PixelForm& form, const Block& block, unsigned sample);
    bool goesStraight(const TiffPage& page, const PixelForm& form) const;
    void readBlock(const TiffPage& page, const Block& block, unsigned sample, std::byte* target,
                   unsigned long rowBytes);
    void check(bool bDone) const;

    TiffHandle& m_tiff;
    Progress& m_progress;
    BaseImage& m_image;
    PagePlace m_place{};
    Palette m_palette;
    std::vector<std::byte> m_scratch;
};

} // namespace orlix::image::io
