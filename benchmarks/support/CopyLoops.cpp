#include "support/CopyLoops.h"

#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

namespace orlix::bench {

const CopyLoops& selectCopyLoops()
{
    for (const CopyLoops* loops : {&g_copyLoops_avx512, &g_copyLoops_avx2}) {
        if (core::isAvailable(loops->set)) {
            return *loops;
        }
    }
    return g_copyLoops_sse2;
}

} // namespace orlix::bench
