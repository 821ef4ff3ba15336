// Arithmetic of packs: the functions of SSE2.
#include "ORLIXMath/Simd/PackArithmeticTable.h"

namespace orlix::simd::test {

constexpr ArithmeticTable g_arithmetic_sse2 = makeArithmeticTable<eInstructionSet::eSSE2>();

} // namespace orlix::simd::test
