// Holding the library to one instruction set.
#pragma once

#include "ORLIX/ORLIXUtil/InstructionSet.h"

namespace orlix::bench {

/// From now on kernels are those of `set`, or of the highest set below it that has some.
void forceSet(const eInstructionSet& set);
/// The library chooses again.
void unforceSet();

} // namespace orlix::bench
