// Choosing the reader for a region.
#include "ORLIXIPL/ORLIXImageIO/ReadRegion.h"

#include "ORLIXIPL/ORLIXImageIO/File/FileFormat.h"
#include "ORLIXIPL/ORLIXImageIO/Png/PngReader.h"
#include "ORLIXIPL/ORLIXImageIO/ReadWith.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffReader.h"

namespace orlix::image::io {

ImagePtr readRegion(const boost::filesystem::path& file, const RegionOffsets& offsets, const RegionSizes& sizes)
{
    return readRegion(file, offsets, sizes, ReadOptions());
}

ImagePtr readRegion(const boost::filesystem::path& file, const RegionOffsets& offsets, const RegionSizes& sizes,
                    const ReadOptions& options)
{
    FileSource source(file);
    const RegionWish wish = {offsets, sizes};
    return formatByContent(source) == eImageFileFormat::ePng ? readWith<PngReader>(source, options, wish)
                                                             : readWith<TiffReader>(source, options, wish);
}

ImagePtr readTiffRegion(std::span<const std::byte> bytes, const RegionOffsets& offsets, const RegionSizes& sizes,
                        const ReadOptions& options)
{
    MemorySource source(bytes);
    return readWith<TiffReader>(source, options, RegionWish{offsets, sizes});
}

ImagePtr readPngRegion(std::span<const std::byte> bytes, const RegionOffsets& offsets, const RegionSizes& sizes,
                       const ReadOptions& options)
{
    MemorySource source(bytes);
    return readWith<PngReader>(source, options, RegionWish{offsets, sizes});
}

} // namespace orlix::image::io
