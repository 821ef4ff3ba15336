// Arithmetic of packs: the functions of AVX512.
#include "ORLIXMath/Simd/PackArithmeticTable.h"

namespace orlix::simd::test {

constexpr ArithmeticTable g_arithmetic_avx512 = makeArithmeticTable<eInstructionSet::eAVX512>();

} // namespace orlix::simd::test
