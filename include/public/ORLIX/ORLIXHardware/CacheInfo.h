// Sizes of this computer's data caches.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"

namespace orlix::hard {

/// Bytes of the last cache level before memory, as one core sees it: L3, or L2 where there is no L3. Never 0; 8 MiB
/// where the system tells nothing. Read once, on the first call of any function here; safe from every thread.
ORLIXHARDWARE_API unsigned long getLastLevelCacheBytes();

/// Bytes of the L2 cache of one core; 1 MiB where the system tells nothing.
ORLIXHARDWARE_API unsigned long getL2CacheBytes();

/// Bytes that travel together between caches: two threads that write within one such line slow each other down. 64
/// where the system tells nothing.
ORLIXHARDWARE_API unsigned long getCacheLineBytes();

} // namespace orlix::hard
