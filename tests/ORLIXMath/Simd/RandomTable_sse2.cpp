// Random generators: the functions of SSE2.
#include "ORLIXMath/Simd/RandomTable.h"

namespace orlix::simd::test {

constexpr RandomTable g_random_sse2 = makeRandomTable<eInstructionSet::eSSE2>();

} // namespace orlix::simd::test
