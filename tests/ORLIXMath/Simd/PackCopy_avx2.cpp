// Copies by pack: the functions of AVX2.
#include "ORLIXMath/Simd/PackCopy.h"

namespace orlix::simd::test {

constexpr CopyTable g_copyTable_avx2 = makeTable<eInstructionSet::eAVX2>();

} // namespace orlix::simd::test
