// The axes of a file that says nothing about them.
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageMetadata.h"

namespace orlix::image::io {

ImageMetadata metadataOfPages(const PageFacts& facts)
{
    ImageMetadata metadata;
    metadata.sizeC = facts.channels;
    metadata.type = facts.type;
    if (facts.pages > 1) {
        metadata.volume.init3d(facts.pages);
    }
    for (unsigned long page = 0; page < facts.pages; ++page) {
        metadata.places.push_back({page, page, 0, 0});
    }
    return metadata;
}

} // namespace orlix::image::io
