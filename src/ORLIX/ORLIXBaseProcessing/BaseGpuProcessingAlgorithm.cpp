#include "ORLIX/ORLIXBaseProcessing/BaseGpuProcessingAlgorithm.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"

namespace orlix::processor {

ProcessingResult<bool> BaseGpuProcessingAlgorithm::mainProcess()
{
    DataTypeIdentifierColl types;
    if (ProcessingResult<bool> result = getDataTypeIdColl(types); !result) {
        return result;
    }
    const CudaFunctionIdentifier* const row = getFunctionSelector().select(types);
    if (row == nullptr) {
        return ProcessingResult<bool>::failure(
            formatMessage<eProcessorMessage>(eProcessorMessage::eNoKernel, getObjectName(), types.toString()));
    }
    return (this->*row->getFunction())();
}

} // namespace orlix::processor
