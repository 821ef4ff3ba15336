// Writing an image as a TIFF file.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/File/TemporaryFile.h"
#include "ORLIXIPL/ORLIXImageIO/SamplePacking.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffHandle.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffLayout.h"

#include <optional>
#include <vector>

namespace orlix::image::io {

/// One file, used by one thread. The image has pixels, in host memory, of one type.
class TiffWriter
{
public:
    /// Throws ORLIXImageIOException where the file can't be begun.
    TiffWriter(TemporaryFile& file, const BaseImage& image, const TiffLayout& layout, const ProgressFunction& function);
    /// Throws ORLIXImageIOException where writing fails or was stopped. To be called once.
    void write();

private:
    void setFields(bool bFirst);
    std::optional<Resolution> resolutionToTell() const;
    void writePage(unsigned long z, unsigned long c, unsigned long t);
    void writeBlock(const PageBlock& block);
    bool goesStraight(unsigned long t) const;
    void check(bool bDone);

    TemporaryFile& m_file;
    const BaseImage& m_image;
    const TiffLayout& m_layout;
    Progress m_progress;
    TiffHandle m_tiff;
    std::vector<std::byte> m_scratch; ///< a strip or tile
};

} // namespace orlix::image::io
