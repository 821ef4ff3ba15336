// Checking an image, choosing the writer and putting the finished file in place.
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/File/TemporaryFile.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngWriter.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/ImageJStackWriter.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffWriter.h"

#include <new>

namespace orlix::image::io {

namespace {

void checkImage(const std::string& file, const ImageConstPtr& image)
{
    if (!image) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNullImage, file);
    }
    const BaseImageGeometry& geometry = image->getGeometry();
    if (geometry.getSizeX() == 0 || geometry.getSizeY() == 0 || geometry.getSizeZ() == 0 || geometry.getSizeC() == 0 ||
        geometry.getSizeT() == 0) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eEmptyImage, file, geometry.toString());
    }
    if (!geometry.hasUniformBufferType()) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eSeveralTypes, file, geometry.toString());
    }
    if (image->isGpuImage() || !image->getPixelLayout().first) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNoHostPixels, file, geometry.toString());
    }
}

// The wait for the disk can be stopped as the work before it.
void finish(TemporaryFile& file, const BaseImage& image, const WriteOptions& options)
{
    if (!options.bSync) {
        file.replaceTarget(FileReplacement::eSync::no);
        return;
    }
    Progress progress(options.progress, image.getGeometry().getNbPlans());
    progress.addPlans(image.getGeometry().getNbPlans());
    file.sync([&] { return progress.goesOn(); });
    progress.throwIfStopped(eORLIXImageIOMessage::eWritingStopped, file.getTargetName());
    file.replaceTarget(FileReplacement::eSync::yes);
}

void writeTiff(const boost::filesystem::path& file, const BaseImage& image, const WriteOptions& options)
{
    const TiffLayout layout = tiffLayoutOf(image, options, file.string());
    TemporaryFile temporary(file);
    if (layout.bImageJ && layout.compression == COMPRESSION_NONE) {
        ImageJStackWriter(temporary, image, layout, options.progress).write();
    } else {
        TiffWriter writer(temporary, image, layout, options.progress);
        writer.write();
    }
    finish(temporary, image, options);
}

void writePng(const boost::filesystem::path& file, const BaseImage& image, const WriteOptions& options)
{
    checkSuitableForPng(image.getGeometry(), file.string());
    TemporaryFile temporary(file);
    PngWriter(temporary, image, options.progress).write();
    finish(temporary, image, options);
}

} // namespace

void writeImage(const boost::filesystem::path& file, const ImageConstPtr& image)
{
    writeImage(file, image, WriteOptions());
}

void writeImage(const boost::filesystem::path& file, const ImageConstPtr& image, const WriteOptions& options)
{
    const eImageFileFormat format = formatByEnding(file);
    checkImage(file.string(), image);
    try {
        format == eImageFileFormat::ePng ? writePng(file, *image, options) : writeTiff(file, *image, options);
    } catch (const std::bad_alloc&) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNoMemory, file.string(), "working memory");
    }
}

} // namespace orlix::image::io
