// Exception of ORLIXCore.
#include "ORLIX/ORLIXCore/ORLIXCoreException.h"

namespace orlix::core {

ORLIXCoreException::~ORLIXCoreException() = default;

} // namespace orlix::core
