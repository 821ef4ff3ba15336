// The dispatchers of a given processor class.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessorDispatcher.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorPool.h"

#include <boost/pointer_cast.hpp>

namespace orlix::processor {

/// What static and dynamic dispatchers of a class have in common.
template <class TProcessor, class TBase>
class ProcessorDispatcher : public TBase
{
public:
    const std::string& getProcessorName() const override { return TProcessor::getObjectNameStr(); }
    const std::string& getProcessorToolTip() const override { return TProcessor::getToolTipStr(); }
    boost::shared_ptr<BaseProcessor> createProcessor() const override { return boost::make_shared<TProcessor>(); }

protected:
    boost::shared_ptr<BaseProcessor> takeIdle() const override { return ProcessorPool<TProcessor>::take(); }
    void giveBackIdle(boost::shared_ptr<BaseProcessor> processor) const override
    {
        ProcessorPool<TProcessor>::giveBack(boost::static_pointer_cast<TProcessor>(std::move(processor)));
    }
};

template <class TProcessor>
class StaticProcessorDispatcher : public ProcessorDispatcher<TProcessor, BaseStaticProcessorDispatcher>
{
public:
    /// `initBase` with the splits in the given order.
    template <class... TSplits>
    ProcessingResult<bool> init(const core::BasePriority& priority, const boost::shared_ptr<TSplits>&... splits)
    {
        return this->initBase(priority, {splits...});
    }
};

template <class TProcessor>
class DynamicProcessorDispatcher : public ProcessorDispatcher<TProcessor, BaseDynamicProcessorDispatcher>
{
public:
    /// `initBase` with the splits in the given order.
    template <class... TSplits>
    ProcessingResult<bool> init(const core::BasePriority& priority, const boost::shared_ptr<TSplits>&... splits)
    {
        return this->initBase(priority, {splits...});
    }
};

} // namespace orlix::processor
