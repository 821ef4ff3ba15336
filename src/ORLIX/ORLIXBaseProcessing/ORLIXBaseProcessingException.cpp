// Exception of ORLIXBaseProcessing.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"

namespace orlix::processor {

ORLIXBaseProcessingException::~ORLIXBaseProcessingException() = default;

} // namespace orlix::processor
