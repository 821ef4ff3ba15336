// Whether this process is a fork that lost the threads of its parent.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"

#include <atomic>

namespace orlix::core {

namespace details {

ORLIXCORE_API extern std::atomic<unsigned> g_nbForks;

} // namespace details

/// How many forks lie between this process and the first one, those of a process with a single thread left out: such a
/// child lacks nothing. What was made under another count may wait for threads that don't exist here.
inline unsigned getForkCount()
{
    return details::g_nbForks.load(std::memory_order_relaxed);
}

} // namespace orlix::core
