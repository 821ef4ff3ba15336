// Copies by pack: the functions of plain code.
#include "ORLIXMath/Simd/PackCopy.h"

namespace orlix::simd::test {

constexpr CopyTable g_copyTable_plain = makeTable<eInstructionSet::eNone>();

} // namespace orlix::simd::test
