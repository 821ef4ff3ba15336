#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"

namespace orlix::imaproc::util {

std::string UtilityLibrary::toolTip(eProcessorMessage::domain id)
{
    return formatMessage<eProcessorMessage>(id);
}

} // namespace orlix::imaproc::util
