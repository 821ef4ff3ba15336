#include "support/FlowLimits.h"

namespace orlix::bench {

void addFlowLimits(Comparison& comparison, const AccessFlowWork& accessWork, unsigned long bytesRead,
                   unsigned long bytesWritten)
{
    const FlowLoops& loops = selectFlowLoops(bytesRead, bytesWritten);
    const auto add = [&](const char* name, eRole role, FlowLoop loop) {
        comparison.add({name, role, [accessWork, loop] { accessWork().run(loop); }});
    };
    add("loop/ordinary", eRole::eOrdinaryLoop, loops.ordinary);
    add("loop/ordinary-blocks", eRole::eOrdinaryLoop, loops.ordinaryBlocks);
    add("loop/ordinary-ahead", eRole::eOrdinaryLoop, loops.ordinaryAhead);
    if (bytesWritten > 0) {
        add("loop/streaming", eRole::eStreamingLoop, loops.streaming);
        add("loop/streaming-groups", eRole::eStreamingLoop, loops.streamingGroups);
    }
}

} // namespace orlix::bench
