// What the pool of pixel memory keeps for reuse, and how to have it back.
#pragma once

#include "ORLIXIPL/ORLIXImage/Export.h"

namespace orlix::image {

// Memory of large images (from 1 MiB) is kept when its last image ends, so that the next image of about that size pays
// no page faults. All functions may be called from any thread. A build with plain allocation keeps nothing.

/// Gives everything that is kept back to the system, and has oneTBB's allocator, which serves smaller images, give up
/// what it can spare. Images that live are not touched. Returns the bytes that the pool gave back.
ORLIXIMAGE_API unsigned long releasePooledMemory();

/// The most bytes that are kept: at first an eighth of the memory that this process may use, but no more than 4 GiB;
/// 0 in a build with plain allocation.
ORLIXIMAGE_API unsigned long getPooledMemoryLimit();

/// Sets the most bytes that are kept, 0 to keep nothing; what is kept beyond is given back at once, oldest first. Has
/// no effect in a build with plain allocation.
ORLIXIMAGE_API void setPooledMemoryLimit(unsigned long bytes);

} // namespace orlix::image
