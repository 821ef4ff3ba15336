// The end of a run of streaming stores.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"

#include <emmintrin.h>

namespace orlix::simd {

/// Makes everything that this thread streamed visible before anything that it stores from here on. To be called once
/// after a kernel's last `stream`, before it returns.
ORLIX_SIMD_INLINE void streamFence()
{
    _mm_sfence();
}

} // namespace orlix::simd
