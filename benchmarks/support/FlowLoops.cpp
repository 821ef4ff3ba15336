#include "support/FlowLoops.h"

#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <stdexcept>

namespace orlix::bench {

const FlowLoops& selectFlowLoops(unsigned long bytesRead, unsigned long bytesWritten)
{
    const FlowLoops* loops = g_flowLoops_sse2;
    for (const FlowLoops* wide : {g_flowLoops_avx512, g_flowLoops_avx2}) {
        if (core::isAvailable(wide->set)) {
            loops = wide;
            break;
        }
    }
    const unsigned long common = std::max(1UL, std::gcd(bytesRead, bytesWritten));
    const FlowRatio ratio{bytesRead / common, bytesWritten / common};
    const FlowLoops* const found =
        std::find_if(loops, loops + g_nbFlowRatios, [&](const FlowLoops& each) { return each.ratio == ratio; });
    if (found == loops + g_nbFlowRatios) {
        throw std::invalid_argument("no loop reads " + std::to_string(bytesRead) + " and writes " +
                                    std::to_string(bytesWritten) + " bytes an element");
    }
    return *found;
}

} // namespace orlix::bench
