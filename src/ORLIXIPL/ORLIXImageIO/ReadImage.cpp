// Choosing the reader.
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include "ORLIXIPL/ORLIXImageIO/File/FileFormat.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngReader.h"
#include "ORLIXIPL/ORLIXImageIO/ReadWith.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffReader.h"

namespace orlix::image::io {

namespace {

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
    return formatByContent(source) == eImageFileFormat::ePng ? readWith<PngReader>(source, options)
                                                             : readWith<TiffReader>(source, options);
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
    return readWith<TiffReader>(source, options);
}

ImagePtr readPng(std::span<const std::byte> bytes, const ReadOptions& options)
{
    MemorySource source(bytes);
    return readWith<PngReader>(source, options);
}

} // namespace orlix::image::io
