#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

namespace orlix::processor {

BaseAttribute::~BaseAttribute() = default;

} // namespace orlix::processor
