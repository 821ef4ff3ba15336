// Random generators: the functions of plain code.
#include "ORLIXMath/Simd/RandomTable.h"

namespace orlix::simd::test {

constexpr RandomTable g_random_plain = makeRandomTable<eInstructionSet::eNone>();

} // namespace orlix::simd::test
