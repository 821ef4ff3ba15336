// Copies by pack: the functions of AVX.
#include "ORLIXMath/Simd/PackCopy.h"

namespace orlix::simd::test {

constexpr CopyTable g_copyTable_avx = makeTable<eInstructionSet::eAVX>();

} // namespace orlix::simd::test
