// Exception of ORLIXHardware.
#include "ORLIX/ORLIXHardware/ORLIXHardwareException.h"

namespace orlix::hard {

ORLIXHardwareException::~ORLIXHardwareException() = default;

} // namespace orlix::hard
