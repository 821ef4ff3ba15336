// Arithmetic of packs: the functions of AVX.
#include "ORLIXMath/Simd/PackArithmeticTable.h"

namespace orlix::simd::test {

constexpr ArithmeticTable g_arithmetic_avx = makeArithmeticTable<eInstructionSet::eAVX>();

} // namespace orlix::simd::test
