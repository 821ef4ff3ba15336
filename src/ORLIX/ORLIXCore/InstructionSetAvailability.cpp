// Hands on what the hardware layer knows of instruction sets, and names them.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include "ORLIX/ORLIXHardware/ProcessorInfo.h"

#include <strings.h>

namespace orlix::core {

bool isAvailable(const eInstructionSet& set)
{
    return hard::getProcessorInfo().hasInstructionSet(set);
}

const std::vector<eInstructionSet>& getAvailableInstructionSets()
{
    return hard::getProcessorInfo().getInstructionSets();
}

const char* getInstructionSetName(const eInstructionSet& set)
{
    switch (static_cast<eInstructionSet::domain>(set)) {
    case eInstructionSet::eNone: return "plain";
    case eInstructionSet::eSSE2: return "SSE2";
    case eInstructionSet::eAVX: return "AVX";
    case eInstructionSet::eAVX2: return "AVX2";
    case eInstructionSet::eAVX512: return "AVX512";
    }
    return "unknown";
}

std::optional<eInstructionSet> findInstructionSet(const std::string& name)
{
    for (const eInstructionSet set : g_allInstructionSets) {
        if (strcasecmp(name.c_str(), getInstructionSetName(set)) == 0) {
            return set;
        }
    }
    return std::nullopt;
}

} // namespace orlix::core
