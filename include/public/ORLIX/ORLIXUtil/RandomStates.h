// States of random generators that nobody has given out before.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

namespace orlix {

/// Fills `states` with states of 32-bit generators. A process-wide counter goes through a bijection, so that in one
/// process no state comes twice before 2^32 have been drawn; processes begin at different places. Any thread, no lock.
ORLIXUTIL_API void drawRandomStates(unsigned int* states, unsigned long nbStates) noexcept;

} // namespace orlix
