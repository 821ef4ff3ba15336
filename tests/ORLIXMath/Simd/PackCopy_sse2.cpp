// Copies by pack: the functions of SSE2.
#include "ORLIXMath/Simd/PackCopy.h"

namespace orlix::simd::test {

constexpr CopyTable g_copyTable_sse2 = makeTable<eInstructionSet::eSSE2>();

} // namespace orlix::simd::test
