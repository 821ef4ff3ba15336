// Exception of ORLIXImageProcessing.
#include "ORLIXIPL/ORLIXImageProcessing/ORLIXImageProcessingException.h"

namespace orlix::imaproc {

ORLIXImageProcessingException::~ORLIXImageProcessingException() = default;

} // namespace orlix::imaproc
