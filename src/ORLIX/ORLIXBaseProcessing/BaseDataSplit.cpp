#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::processor {

BaseDataSplit::~BaseDataSplit() = default;

void BaseDataSplit::throwNullInputSharedPtr() const
{
    raise<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eNullSplitInput, getAttributeName());
}

void BaseDynamicSplit::initRanges(unsigned long, unsigned long) {}

} // namespace orlix::processor
