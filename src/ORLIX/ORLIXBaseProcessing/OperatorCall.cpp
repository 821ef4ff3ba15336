#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::processor::details {

void throwRunFailed(const ProcessingResult<bool>& result)
{
    raiseFailure<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eRunFailed, result.getMessage());
}

void throwNullProcessor(const std::string& name)
{
    raise<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eNullProcessor, name);
}

} // namespace orlix::processor::details
