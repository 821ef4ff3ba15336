// Exception of ORLIXIPLUtility.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtilityException.h"

namespace orlix::imaproc::util {

ORLIXIPLUtilityException::~ORLIXIPLUtilityException() = default;

} // namespace orlix::imaproc::util
