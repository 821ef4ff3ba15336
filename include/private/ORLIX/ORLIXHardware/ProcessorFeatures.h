// The processor's feature words, and which instruction sets follow from them.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"
#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <string>

namespace orlix::hard::details {

/// Registers that CPUID gives, by leaf, and the mask of register files that the system saves for a thread.
struct FeatureWords
{
    unsigned leaf1Ecx = 0;
    unsigned leaf1Edx = 0;
    unsigned leaf7Ebx = 0;
    unsigned long savedStates = 0; ///< XCR0; 0 where the system hasn't switched it on
};

FeatureWords readFeatureWords();

/// May code for `set` run on a processor and system with these words? False for a value that names no set.
ORLIXHARDWARE_API bool hasInstructionSet(const FeatureWords& words, const eInstructionSet& set);

/// The mark of the processor's maker; "unknown" where it has none.
std::string readVendorName();

/// The processor's own name without surrounding blanks; "unknown" where it has none.
std::string readModelName();

} // namespace orlix::hard::details
