// Arithmetic of packs: the functions of plain code.
#include "ORLIXMath/Simd/PackArithmeticTable.h"

namespace orlix::simd::test {

constexpr ArithmeticTable g_arithmetic_plain = makeArithmeticTable<eInstructionSet::eNone>();

} // namespace orlix::simd::test
