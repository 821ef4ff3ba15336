// Random generators: the functions of AVX512.
#include "ORLIXMath/Simd/RandomTable.h"

namespace orlix::simd::test {

constexpr RandomTable g_random_avx512 = makeRandomTable<eInstructionSet::eAVX512>();

} // namespace orlix::simd::test
