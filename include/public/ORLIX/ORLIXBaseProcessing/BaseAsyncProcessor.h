// Processors whose work is done by a level below, in one stage or in two.
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

/// Two stages: the second provider is asked for, and run, only when every element of the first has ended. A stage that
/// has nothing to do is passed over; one that fails, throws or is cancelled ends the run, so the second never starts
/// on half of what the first was to do.
class ORLIXBASEPROCESSING_API BaseAsync2Processor : public BaseAsyncProcessor
{
protected:
    void retrieveSequenceInfo(unsigned int& nbStages) const override { nbStages = 2; }
    ProviderResult retrieveProvider(const core::BasePriority& priority, unsigned int stage, unsigned int,
                                    boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        return stage == 0 ? retrieveFirstProvider(priority, provider) : retrieveSecondProvider(priority, provider);
    }
    /// Each sets `provider` and says so, or says that there is nothing to do, or why it failed.
    virtual ProviderResult retrieveFirstProvider(const core::BasePriority& priority,
                                                 boost::shared_ptr<core::BaseActionProvider>& provider) = 0;
    virtual ProviderResult retrieveSecondProvider(const core::BasePriority& priority,
                                                  boost::shared_ptr<core::BaseActionProvider>& provider) = 0;
};

} // namespace orlix::processor
