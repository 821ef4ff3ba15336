// Writing an image as a PNG file.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/File/TemporaryFile.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngHandle.h"
#include "ORLIXIPL/ORLIXImageIO/Progress.h"

#include <vector>

namespace orlix::image::io {

/// Throws ORLIXImageIOException, naming `file`, where PNG can't hold such an image.
void checkSuitableForPng(const BaseImageGeometry& geometry, const std::string& file);

/// What libpng's write callback works on.
struct PngOutput
{
    TemporaryFile& file;
    Progress& progress; ///< asked between writes
    unsigned long position = 0;
};

/// One file, used by one thread. The image has pixels, in host memory, and suits PNG.
class PngWriter
{
public:
    PngWriter(TemporaryFile& file, const BaseImage& image, const ProgressFunction& function);
    /// Throws ORLIXImageIOException where writing fails or was stopped. To be called once.
    void write();

private:
    void writeHeader();
    void writeRows();
    [[noreturn]] void raiseFailed() const;

    const BaseImage& m_image;
    Progress m_progress;
    PngOutput m_output;
    PngWriteHandle m_handle;
};

} // namespace orlix::image::io
