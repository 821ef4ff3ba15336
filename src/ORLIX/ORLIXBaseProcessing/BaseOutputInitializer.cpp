#include "ORLIX/ORLIXBaseProcessing/BaseOutputInitializer.h"

namespace orlix::processor {

BaseOutputInitializer::~BaseOutputInitializer() = default;

} // namespace orlix::processor
