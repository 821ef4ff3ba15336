// Exception of ORLIXBaseData.
#include "ORLIX/ORLIXBaseData/ORLIXBaseDataException.h"

namespace orlix {

ORLIXBaseDataException::~ORLIXBaseDataException() = default;

} // namespace orlix
