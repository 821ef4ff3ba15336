// Writing uncompressed TIFF files as ImageJ wants them.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/File/TemporaryFile.h"
#include "ORLIXIPL/ORLIXImageIO/Progress.h"
#include "ORLIXIPL/ORLIXImageIO/SamplePacking.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffLayout.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orlix::image::io {

/// One file, used by one thread. Where the description tells of several images, ImageJ reads the first directory alone
/// and takes the pixels of all pages to follow one another. libtiff would put directories between them, so all
/// directories are written first, without it. Where 32-bit offsets can't reach all pages, there is one directory alone,
/// as ImageJ itself does it.
class ImageJStackWriter
{
public:
    ImageJStackWriter(TemporaryFile& file, const BaseImage& image, const TiffLayout& layout,
                      const ProgressFunction& function);
    /// Throws ORLIXImageIOException where writing fails or was stopped. To be called once.
    void write();

private:
    std::string directoriesOf(unsigned long pages) const;
    void writePage(unsigned long offset, unsigned long z, unsigned long c, unsigned long t);
    void put(unsigned long offset, const void* source, unsigned long bytes);
    void check(bool bDone) const;

    TemporaryFile& m_file;
    const BaseImage& m_image;
    const TiffLayout& m_layout;
    Progress m_progress;
    unsigned long m_rowBytes;
    unsigned long m_pageBytes;
    std::string m_description;
    std::vector<std::byte> m_scratch;
};

} // namespace orlix::image::io
