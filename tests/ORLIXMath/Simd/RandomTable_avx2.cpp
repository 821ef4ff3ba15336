// Random generators: the functions of AVX2.
#include "ORLIXMath/Simd/RandomTable.h"

namespace orlix::simd::test {

constexpr RandomTable g_random_avx2 = makeRandomTable<eInstructionSet::eAVX2>();

} // namespace orlix::simd::test
