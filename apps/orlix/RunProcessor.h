// Running an operator from the command line, with progress.
#pragma once

#include "CommandContext.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"

namespace orlix::cli {

/// Runs an initialised processor to its end, after what its rules leave to the caller has been checked. Throws what the
/// run throws.
void runWatched(const boost::shared_ptr<processor::BaseProcessor>& processor, const char* phase,
                CommandContext& context);

/// Runs the level-1 processor of an operator with the given attributes and returns it with its outputs. `phase` is what
/// the progress line calls the work.
///
///     runProcessor<CopyImgLvl1>("copy", context, processor::with<attr::InImg>(image))->getStorage<attr::OutImg>()
template <class TProcessor, class... TValues>
boost::shared_ptr<TProcessor> runProcessor(const char* phase, CommandContext& context, const TValues&... values)
{
    const boost::shared_ptr<TProcessor> processor = boost::make_shared<TProcessor>();
    // A class whose init fails says so again, as a text, when it is run.
    static_cast<void>(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    (processor->template set<typename TValues::Attribute>(values.value), ...);
    runWatched(processor, phase, context);
    return processor;
}

} // namespace orlix::cli
