// Pixels that lie in a file as they are: read without libtiff, which is faster and needs no directory.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/RegionTarget.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/SampleUnpacking.h"

namespace orlix::image::io {

/// Pages of one file whose rows touch in the file: of each page the rows of the region.
class RawPageReader
{
public:
    RawPageReader(TiffHandle& tiff, ByteSource& source, Progress& progress, const RegionTarget& target)
        : m_tiff(tiff), m_source(source), m_progress(progress), m_target(target)
    {}

    /// May the pixels of such a page be read from `page.rawOffset` on?
    static bool suits(const TiffPage& page, const PixelForm& form);

    /// Reads a page whose pixels begin at `offset`. Throws ORLIXImageIOException where they end early or reading was
    /// stopped.
    void read(const TiffPage& page, const PixelForm& form, unsigned long offset, const PagePlace& place);

    /// Reads a stack as ImageJ writes it with a single directory: plans without directories behind the first page's
    /// pixels, c fastest, then z, then t. `whole` is the image that the stack holds.
    void readStack(const TiffPage& page, const PixelForm& form, const BaseImageGeometry& whole);

private:
    void readRows(const TiffPage& page, const PixelForm& form, unsigned long offset, const PagePlace& place,
                  const AxisPart& columns, const AxisPart& rows);

    TiffHandle& m_tiff;
    ByteSource& m_source;
    Progress& m_progress;
    RegionTarget m_target;
    std::vector<std::byte> m_scratch;
};

/// Throws ORLIXImageIOException where a stack with a single directory can't begin with this page, or the file is too
/// short for all plans of the geometry.
void checkRawStack(TIFF* tiff, const TiffPage& page, const PixelForm& form, const BaseImageGeometry& geometry,
                   const ByteSource& source);

} // namespace orlix::image::io
