// Where a kernel's output lies, as far as the best way to write it depends on that.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"

namespace orlix::simd {

/// The level that holds the output, and whether the processor wants to be assisted there: within the last level by
/// lines fetched ahead, beyond by four sequences of lines that go on side by side instead of one. What is written never
/// depends on it.
enum class eMemoryPlace : unsigned {
    secondLevelCache = 0,     ///< holds the output and an input of its size
    lastLevelCache = 1,       ///< holds the output and an input of its size
    lastLevelCacheFilled = 2, ///< holds the output alone: kernels that read an input store past the caches
    memory = 3,               ///< no cache holds the output: all kernels store past the caches
    assistedLastLevelCache = 5,
    assistedLastLevelCacheFilled = 6,
    assistedMemory = 7
};

/// The level alone, one of the first four; they may be compared.
ORLIX_SIMD_INLINE constexpr eMemoryPlace levelOf(eMemoryPlace place)
{
    return static_cast<eMemoryPlace>(static_cast<unsigned>(place) & 3);
}
ORLIX_SIMD_INLINE constexpr bool isAssisted(eMemoryPlace place)
{
    return (static_cast<unsigned>(place) & 4) != 0;
}

} // namespace orlix::simd
