// Arithmetic of packs: the functions of AVX2.
#include "ORLIXMath/Simd/PackArithmeticTable.h"

namespace orlix::simd::test {

constexpr ArithmeticTable g_arithmetic_avx2 = makeArithmeticTable<eInstructionSet::eAVX2>();

} // namespace orlix::simd::test
