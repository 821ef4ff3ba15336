#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"

namespace orlix::processor {

CallerCheck::~CallerCheck() = default;

} // namespace orlix::processor
