// Processors whose work is done by a level below, in one stage.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIX/ORLIXCore/BaseActionProvider.h"

namespace orlix::processor {

/// `preProcess`, then every stage: its provider is retrieved and run to its end; then `postProcess`.
class ORLIXBASEPROCESSING_API BaseAsyncProcessor : public BaseProcessor
{
public:
    eProcessorType getProcessorType() const override { return eProcessorType::eAsyncProcessor; }

protected:
    ProcessingResult<bool> process() override;

    /// How many stages a run has; they follow one another.
    virtual void retrieveSequenceInfo(unsigned int& nbStages) const = 0;
    /// Sets `provider` to that of `stage` of `nbStages`.
    virtual ProviderResult retrieveProvider(const core::BasePriority& priority, unsigned int stage,
                                            unsigned int nbStages,
                                            boost::shared_ptr<core::BaseActionProvider>& provider) = 0;
};

class ORLIXBASEPROCESSING_API BaseAsync1Processor : public BaseAsyncProcessor
{
protected:
    void retrieveSequenceInfo(unsigned int& nbStages) const override { nbStages = 1; }
    ProviderResult retrieveProvider(const core::BasePriority& priority, unsigned int, unsigned int,
                                    boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        return retrieveProvider(priority, provider);
    }
    /// Sets `provider` and says so, or says that there is nothing to do, or why it failed.
    virtual ProviderResult retrieveProvider(const core::BasePriority& priority,
                                            boost::shared_ptr<core::BaseActionProvider>& provider) = 0;
};

} // namespace orlix::processor
