// Decoding the strips or tiles of a page into the plans of an image.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/RegionTarget.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/SampleUnpacking.h"

namespace orlix::image::io {

/// Working memory that decoding such a page takes, in bytes.
WideSize scratchBytesOf(const TiffPage& page, const PixelForm& form);

/// One file, page by page: of each page the strips or tiles that the region touches. Strips whose samples are the
/// elements go straight to the plan.
class TiffPageDecoder
{
public:
    TiffPageDecoder(TiffHandle& tiff, Progress& progress, const RegionTarget& target)
        : m_tiff(tiff), m_progress(progress), m_target(target)
    {}

    /// Decodes the current page of the file. Throws ORLIXImageIOException where it is damaged or reading was stopped.
    void decode(const TiffPage& page, const PixelForm& form, const PagePlace& place);

private:
    /// A strip or tile.
    struct Block
    {
        unsigned long x, y, height; ///< in the page, cut to it
        unsigned sample;            ///< the only one that it holds, where each has blocks of its own
    };

    const ImageRegion& region() const { return m_target.getRegion(); }
    void decodeByLibrary(const TiffPage& page);
    void decodeBlocks(unsigned sample);
    void decodeByRows(const Block& block);
    void decodeWhole(const Block& block);
    void unpack(const Block& block, unsigned long y, const std::byte* row);
    bool goesStraight() const;
    std::uint32_t indexOf(const Block& block) const;
    unsigned long rowBytes() const;
    void check(bool bDone) const;

    TiffHandle& m_tiff;
    Progress& m_progress;
    RegionTarget m_target;
    TiffPage m_page; ///< the one that is decoded, and what is known of it
    PixelForm m_form;
    PagePlace m_place{};
    Palette m_palette;
    std::vector<std::byte> m_scratch;
};

} // namespace orlix::image::io
