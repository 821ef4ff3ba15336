// Reading by one of the readers, with failures from below turned into this library's exception.
#pragma once

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"
#include "ORLIXIPL/ORLIXImageIO/ImageRegion.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include <new>

namespace orlix::image::io {

/// Pixel memory or working memory that cannot be had is a failure of reading this file.
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

/// Reads the whole image without a wish.
template <class TReader>
ImagePtr readWith(ByteSource& source, const ReadOptions& options, const std::optional<RegionWish>& wish = std::nullopt)
{
    return withMemoryFailuresNamed(source.getName(), [&] {
        TReader reader(source, options.limits, wish);
        return reader.read(options.progress);
    });
}

} // namespace orlix::image::io
