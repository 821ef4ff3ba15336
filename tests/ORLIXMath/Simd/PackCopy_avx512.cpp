// Copies by pack: the functions of AVX512.
#include "ORLIXMath/Simd/PackCopy.h"

namespace orlix::simd::test {

constexpr CopyTable g_copyTable_avx512 = makeTable<eInstructionSet::eAVX512>();

} // namespace orlix::simd::test
