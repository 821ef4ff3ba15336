// The ways in which a public operator function uses its level-1 processor.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessorPool.h"

namespace orlix::processor {

/// A value for an attribute, by reference.
template <class TAttribute>
struct AttributeValue
{
    using Attribute = TAttribute;
    const typename TAttribute::StorageType& value;
};

template <class TAttribute>
AttributeValue<TAttribute> with(const typename TAttribute::StorageType& value)
{
    return {value};
}

/// Sets the attributes in the given order and runs to the end. A failed run throws.
template <class TProcessor, class... TValues>
void run(const TValues&... values)
{
    const CallProcessor<TProcessor> processor;
    (processor->template set<typename TValues::Attribute>(values.value), ...);
    processor.run();
}

/// The same, and reads `TOutput` back.
template <class TProcessor, class TOutput, class... TValues>
typename TOutput::StorageType runForOutput(const TValues&... values)
{
    const CallProcessor<TProcessor> processor;
    (processor->template set<typename TValues::Attribute>(values.value), ...);
    processor.run();
    return processor->template getStorage<TOutput>();
}

/// Sets the attributes in the given order, starts the run, and returns the running processor.
template <class TProcessor, class... TValues>
boost::shared_ptr<TProcessor> start(const TValues&... values)
{
    const boost::shared_ptr<TProcessor> processor = boost::make_shared<TProcessor>();
    static_cast<void>(processor->init(eProcessorRulePolicy::eRulePolicyCheck));
    (processor->template set<typename TValues::Attribute>(values.value), ...);
    static_cast<void>(processor->run(core::eSynchroType::eSynchroAsync)); // what comes of it is wait()'s to tell
    return processor;
}

namespace details {
/// Throws ORLIXBaseProcessingException: a processor of class `name` was expected.
[[noreturn]] ORLIXBASEPROCESSING_API void throwNullProcessor(const std::string& name);
} // namespace details

/// What attribute `TOutput` of a processor that `start` returned holds once its run has succeeded; null before the end,
/// since another thread may be setting it, and after a failed run. Does not wait. Throws ORLIXBaseProcessingException
/// for a null pointer.
template <class TOutput, class TProcessor>
typename TOutput::StorageType outputOf(const boost::shared_ptr<TProcessor>& processor)
{
    if (!processor) {
        details::throwNullProcessor(TProcessor::getObjectNameStr());
    }
    processor->checkInitialised();
    if (!processor->isFinished() || !processor->wait()) {
        return {};
    }
    return processor->template getStorage<TOutput>();
}

} // namespace orlix::processor
