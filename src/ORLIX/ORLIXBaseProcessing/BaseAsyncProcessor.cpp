#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"

#include "ORLIX/ORLIXCore/RunContext.h"
#include "ORLIX/ORLIXCore/RunLoop.h"

namespace orlix::processor {

ProcessingResult<bool> BaseAsyncProcessor::process()
{
    if (StepResult step = preProcess(); step.status != eStepStatus::eStepSuccess) {
        return ProcessingResult<bool>::failure(step.message);
    }
    unsigned int nbStages = 0;
    retrieveSequenceInfo(nbStages);
    for (unsigned int stage = 0; stage < nbStages; ++stage) {
        boost::shared_ptr<core::BaseActionProvider> provider;
        ProviderResult retrieved = retrieveProvider(getPriority(), stage, nbStages, provider);
        if (retrieved.status == eProviderStatus::eProviderFailed) {
            return ProcessingResult<bool>::failure(retrieved.message);
        }
        if (retrieved.status == eProviderStatus::eProviderReady) {
            if (ProcessingResult<bool> result = core::runElements(*provider, accessContext()); !result) {
                return result;
            }
        }
    }
    if (StepResult step = postProcess(); step.status != eStepStatus::eStepSuccess) {
        return ProcessingResult<bool>::failure(step.message);
    }
    return true;
}

} // namespace orlix::processor
