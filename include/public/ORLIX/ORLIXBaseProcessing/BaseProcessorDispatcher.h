// Dispatchers: make one lower processor per element, give it its attributes, and hand it to the run loop.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIX/ORLIXCore/BaseActionProvider.h"

#include <vector>

namespace orlix::processor {

class ORLIXBASEPROCESSING_API BaseProcessorDispatcher : public core::BaseActionProvider
{
public:
    /// How work is cut, from the next set-up on; the default is the default policy.
    void setDispatchPolicy(const ProcessorDispatchPolicy& policy) { m_policy = policy; }
    const ProcessorDispatchPolicy& getDispatchPolicy() const { return m_policy; }

    ProcessingResult<bool> queryNextAction(const core::BaseRequestOrigin& origin,
                                           boost::shared_ptr<core::BaseAction>& action) override;
    unsigned long getNbElements() const override { return m_nbElements; }
    /// Bytes that all elements touch, as many times as the policy weighs them.
    unsigned long getCost() const override { return m_cost; }
    bool hasPendingAction() const override { return m_nbQueried < m_nbElements; }
    void notifyDerived(boost::shared_ptr<core::BaseAction>& action, bool bSuccess) override;
    void requestCancellationDerived() override { m_nbQueried = m_nbElements; }

    virtual const std::string& getProcessorName() const = 0;
    virtual const std::string& getProcessorToolTip() const = 0;
    virtual boost::shared_ptr<BaseProcessor> createProcessor() const = 0;
    virtual ProcessingResult<bool> initAttributes(BaseProcessor& lower, const core::BaseRequestOrigin& origin) = 0;

protected:
    /// An idle processor of the class, or null; see ProcessorPool.
    virtual boost::shared_ptr<BaseProcessor> takeIdle() const = 0;
    virtual void giveBackIdle(boost::shared_ptr<BaseProcessor> processor) const = 0;

    /// The processors that follow are less urgent by one than `priority`, that of the level that dispatches them.
    void startQueries(const core::BasePriority& priority)
    {
        m_nbQueried = 0;
        m_lowerPriority = core::BasePriority(priority.getDepth() + 1);
    }
    void setSize(unsigned long nbElements, unsigned long bytes);

private:
    ProcessorDispatchPolicy m_policy;
    unsigned long m_nbQueried = 0;
    core::BasePriority m_lowerPriority;
    unsigned long m_nbElements = 0;
    unsigned long m_cost = 0;
};

/// One lower processor per element of its splits.
class ORLIXBASEPROCESSING_API BaseStaticProcessorDispatcher : public BaseProcessorDispatcher
{
public:
    /// Fails where there is no split with elements, where the splits differ in their number of elements, or where
    /// there are more than an `unsigned int` can number.
    ProcessingResult<bool> initBase(const core::BasePriority& priority,
                                    const std::vector<boost::shared_ptr<BaseStaticSplit>>& splits);

    ProcessingResult<bool> initAttributes(BaseProcessor& lower, const core::BaseRequestOrigin& origin) override;
    void clearDerived() override;

private:
    std::vector<boost::shared_ptr<BaseStaticSplit>> m_splits;
    bool m_bSplitsChecked = false;
};

/// One lower processor per range of lines, the same ranges for all splits.
class ORLIXBASEPROCESSING_API BaseDynamicProcessorDispatcher : public BaseProcessorDispatcher
{
public:
    /// Fails where there is no split with lines, or where the splits differ in their number of lines.
    ProcessingResult<bool> initBase(const core::BasePriority& priority,
                                    const std::vector<boost::shared_ptr<BaseDynamicSplit>>& splits);

    unsigned long getLinesPerElement() const { return m_linesPerElement; }
    ProcessingResult<bool> initAttributes(BaseProcessor& lower, const core::BaseRequestOrigin& origin) override;
    void clearDerived() override;

private:
    std::vector<boost::shared_ptr<BaseDynamicSplit>> m_splits;
    bool m_bSplitsChecked = false;
    unsigned long m_nbLines = 0;
    unsigned long m_linesPerElement = 0;
};

} // namespace orlix::processor
