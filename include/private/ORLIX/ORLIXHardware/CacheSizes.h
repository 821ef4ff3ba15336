// Where the cache sizes come from.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"

#include <string>

namespace orlix::hard::details {

/// In bytes; 0 for what is unknown.
struct CacheSizes
{
    unsigned long line = 0;
    unsigned long level2 = 0;
    unsigned long lastLevel = 0;
};

/// "32K", "1M" and "512" in bytes; 0 for anything else.
ORLIXHARDWARE_API unsigned long parseCacheSize(const std::string& text);

/// What Linux tells in `directory`, which holds one folder "index<n>" per cache. A missing folder is not an error.
ORLIXHARDWARE_API CacheSizes readCacheSizesIn(const std::string& directory);

/// What the C library tells.
CacheSizes readSystemCacheSizes();

/// `first` completed by `second`, then by common sizes. Nothing is 0 and the last level is at least as large as L2.
ORLIXHARDWARE_API CacheSizes completeCacheSizes(const CacheSizes& first, const CacheSizes& second);

} // namespace orlix::hard::details
