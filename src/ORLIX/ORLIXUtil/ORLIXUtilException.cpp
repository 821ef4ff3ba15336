// Exception of ORLIXUtil.
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"

namespace orlix {

ORLIXUtilException::~ORLIXUtilException() = default;

} // namespace orlix
