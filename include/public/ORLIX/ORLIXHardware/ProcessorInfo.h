// What the processor of this computer is.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"
#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <string>
#include <vector>

namespace orlix::hard {

/// Immutable description of the processor; every query is safe from every thread.
class ORLIXHARDWARE_API ProcessorInfo
{
public:
    /// Asks the processor and the system.
    ProcessorInfo();

    /// The maker's mark of twelve characters, "GenuineIntel" or "AuthenticAMD" for example; "unknown" where there is
    /// none.
    const std::string& getVendorName() const { return m_vendorName; }

    /// As the processor spells it, "Intel(R) Xeon(R) Gold 6248 CPU @ 2.50GHz" for example; "unknown" where it doesn't.
    const std::string& getModelName() const { return m_modelName; }

    /// Logical cores that are switched on in this computer, whether this process may use them or not. At least 1.
    unsigned long getNbLogicalCores() const { return m_nbLogicalCores; }

    /// True where the processor has the set and the system saves its registers; plain code always runs.
    bool hasInstructionSet(const eInstructionSet& set) const;

    /// Every set that the processor has, plain code first and the widest last.
    const std::vector<eInstructionSet>& getInstructionSets() const { return m_sets; }

private:
    std::string m_vendorName;
    std::string m_modelName;
    unsigned long m_nbLogicalCores;
    std::vector<eInstructionSet> m_sets;
};

/// The processor of this computer, asked on the first call.
ORLIXHARDWARE_API const ProcessorInfo& getProcessorInfo();

} // namespace orlix::hard
