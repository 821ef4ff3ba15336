// Where in the memory of this computer a number of bytes lies while they are worked on.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"

namespace orlix::bench {

struct eDataPlace
{
    enum domain {
        eInL2 = 0,        ///< each thread's part fits the L2 cache of its core
        eInLastLevel = 1, ///< all fits the last-level cache
        eAtTheEdge = 2,   ///< the last-level cache holds half of it or more
        eBeyond = 3
    };
    ORLIX_ENUMERATION(eDataPlace, eInL2);
};

/// `bytes` are those of all inputs and outputs, shared by `nbThreads` threads.
eDataPlace findDataPlace(unsigned long bytes, unsigned long nbThreads);

/// "in L2", "beyond the last-level cache".
const char* describe(eDataPlace place);

} // namespace orlix::bench
