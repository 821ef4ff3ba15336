// Counts what the calling thread takes from `operator new`, in every library of the program.
#pragma once

namespace orlix::bench {

/// Pixels of images and other memory of the system's own calls are not among them.
struct Allocations
{
    unsigned long count = 0;
    unsigned long bytes = 0;
};

/// Of the calling thread since it began.
Allocations getAllocations();

} // namespace orlix::bench
