#include "ORLIX/ORLIXCore/BaseActionProvider.h"

namespace orlix::core {

BaseActionProvider::~BaseActionProvider() = default;

} // namespace orlix::core
