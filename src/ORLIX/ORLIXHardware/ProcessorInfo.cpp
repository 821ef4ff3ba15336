// Fills the description of the processor.
#include "ORLIX/ORLIXHardware/ProcessorInfo.h"

#include "ORLIX/ORLIXHardware/ProcessorFeatures.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>

namespace orlix::hard {

ProcessorInfo::ProcessorInfo()
    : m_vendorName(details::readVendorName()), m_modelName(details::readModelName()),
      m_nbLogicalCores(static_cast<unsigned long>(std::max(1L, sysconf(_SC_NPROCESSORS_ONLN))))
{
    const details::FeatureWords words = details::readFeatureWords();
    std::copy_if(g_allInstructionSets.begin(), g_allInstructionSets.end(), std::back_inserter(m_sets),
                 [&](eInstructionSet set) { return details::hasInstructionSet(words, set); });
}

bool ProcessorInfo::hasInstructionSet(const eInstructionSet& set) const
{
    return std::find(m_sets.begin(), m_sets.end(), set) != m_sets.end();
}

const ProcessorInfo& getProcessorInfo()
{
    static const ProcessorInfo info;
    return info;
}

} // namespace orlix::hard
