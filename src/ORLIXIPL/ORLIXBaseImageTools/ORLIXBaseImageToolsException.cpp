// The exception of ORLIXBaseImageTools.
#include "ORLIXIPL/ORLIXBaseImageTools/ORLIXBaseImageToolsException.h"

namespace orlix::image::tools {

ORLIXBaseImageToolsException::~ORLIXBaseImageToolsException() = default;

} // namespace orlix::image::tools
