// Choosing the reader, and turning failures from below into this library's exception.
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImageIO/File/FileFormat.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngReader.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffReader.h"

#include <new>

namespace orlix::image::io {

namespace {

// Pixel memory or working memory that cannot be had is a failure of reading this file.
template <class TWork>
auto withMemoryFailuresNamed(const std::string& file, TWork&& work)
{
    try {
        return work();
    } catch (const ORLIXImageException& exception) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNoMemory, file, exception.what());
    } catch (const std::bad_alloc&) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNoMemory, file, "working memory");
    }
}

template <class TReader>
ImagePtr read(ByteSource& source, const ReadOptions& options)
{
    return withMemoryFailuresNamed(source.getName(), [&] {
        TReader reader(source, options.limits);
        return reader.read(options.progress);
    });
}

template <class TReader>
ImageFileInfo readInfo(ByteSource& source)
{
    ReadLimits limits;
    limits.maxBytes = NumericLimits<unsigned long>::s_max; // no pixel memory is taken
    return withMemoryFailuresNamed(source.getName(), [&] { return TReader(source, limits).getInfo(); });
}

} // namespace

ImagePtr readImage(const boost::filesystem::path& file)
{
    return readImage(file, ReadOptions());
}

ImagePtr readImage(const boost::filesystem::path& file, const ReadOptions& options)
{
    FileSource source(file);
    return formatByContent(source) == eImageFileFormat::ePng ? read<PngReader>(source, options)
                                                             : read<TiffReader>(source, options);
}

ImageFileInfo readImageInfo(const boost::filesystem::path& file)
{
    FileSource source(file);
    return formatByContent(source) == eImageFileFormat::ePng ? readInfo<PngReader>(source)
                                                             : readInfo<TiffReader>(source);
}

ImagePtr readTiff(std::span<const std::byte> bytes, const ReadOptions& options)
{
    MemorySource source(bytes);
    return read<TiffReader>(source, options);
}

ImagePtr readPng(std::span<const std::byte> bytes, const ReadOptions& options)
{
    MemorySource source(bytes);
    return read<PngReader>(source, options);
}

} // namespace orlix::image::io
