// Whether a buffer is too large for the last-level cache to keep it.
#pragma once

#include "ORLIX/ORLIXHardware/CacheInfo.h"

namespace orlix::image {

/// True for a buffer of at least half the last-level cache: stores past the cache pay there, and cost below.
inline bool isStreamingPaying(unsigned long bytes)
{
    return bytes >= hard::getLastLevelCacheBytes() / 2;
}

} // namespace orlix::image
