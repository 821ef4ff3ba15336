// The ways in which a public operator function uses its level-1 processor.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AttributeValues.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorPool.h"
#include "ORLIX/ORLIXCore/CallWatch.h"

namespace orlix::processor {

namespace details {

/// Throws ORLIXBaseProcessingException with the message of a failed run.
[[noreturn]] ORLIXBASEPROCESSING_API void throwRunFailed(const ProcessingResult<bool>& result);

/// Is everything given that a run needs, the outputs included?
template <class TCall, class... TAttributes>
bool isComplete(const OwnAttributes<TAttributes...>*)
{
    return ((TCall::template isGiven<TAttributes>() || (!TAttributes::g_bOutput && TAttributes().isOptional())) && ...);
}

/// Does the call without a run of level 1, where that comes to the same: see DispatchLevel. False: nothing is done.
/// Where the calling thread watches its calls, there has to be a run that can be watched.
template <class TProcessor, class TCall>
bool runStraight(const TCall& call)
{
    if constexpr (requires { TProcessor::isStraight(call); }) {
        using Attributes = typename TProcessor::Attributes;
        if (isComplete<TCall>(static_cast<const Attributes*>(nullptr)) && core::CallWatch::getInnermost() == nullptr &&
            TProcessor::isStraight(call) && TProcessor::Rule::holds(call)) {
            if (const ProcessingResult<bool> result = TProcessor::runStraight(call); !result) {
                throwRunFailed(result);
            }
            return true;
        }
    }
    return false;
}

/// What the class's initializer makes of the call for `TOutput`; null where it makes none.
template <class TProcessor, class TOutput, class TCall>
typename TOutput::StorageType makeOutput(const TCall& call)
{
    if constexpr (requires { typename TProcessor::Initializers; }) {
        using Initializer = typename decltype(TProcessor::Initializers::template find<TOutput>())::type;
        if constexpr (!std::is_void_v<Initializer>) {
            return Initializer::makeOutput(call);
        }
    }
    return {};
}

} // namespace details

/// A pointer to an item in the frame of a call, which it neither owns nor counts: for `runStraight` alone, since a
/// processor may be kept, with what it holds.
template <class TItem>
boost::shared_ptr<const TItem> borrowed(const TItem& item)
{
    return boost::shared_ptr<const TItem>(boost::shared_ptr<void>(), &item);
}

/// Does what `run` does where that takes no processor of level 1; false: nothing has been done, which is `run`'s to do.
/// A failure throws.
template <class TProcessor, class... TValues>
[[nodiscard]] bool runStraight(const TValues&... values)
{
    return details::runStraight<TProcessor>(CallValues<TValues...>(values...));
}

/// Sets the attributes in the given order and runs to the end. A failed run throws.
template <class TProcessor, class... TValues>
void run(const TValues&... values)
{
    if (runStraight<TProcessor>(values...)) {
        return;
    }
    const CallProcessor<TProcessor> processor;
    (processor->template set<typename TValues::Attribute>(values.value), ...);
    processor.run();
}

/// The same, and gives back what `TOutput` then holds.
template <class TProcessor, class TOutput, class... TValues>
typename TOutput::StorageType runForOutput(const TValues&... values)
{
    if (typename TOutput::StorageType output =
            details::makeOutput<TProcessor, TOutput>(CallValues<TValues...>(values...))) {
        run<TProcessor>(values..., with<TOutput>(output));
        return output;
    }
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
