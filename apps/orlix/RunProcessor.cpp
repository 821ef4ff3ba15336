// Running an operator from the command line, with progress.
#include "RunProcessor.h"

#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"

namespace orlix::cli {

namespace {

/// What the processor's rules leave to its caller.
void checkForCaller(const processor::BaseProcessor& processor)
{
    const auto* const unruled = dynamic_cast<const processor::CallerCheck*>(&processor);
    if (unruled == nullptr) {
        return;
    }
    if (const ProcessingResult<bool> result = unruled->checkForCaller(); !result) {
        processor::details::throwRunFailed(result);
    }
}

} // namespace

void runWatched(const boost::shared_ptr<processor::BaseProcessor>& processor, const char* phase,
                CommandContext& context)
{
    processor->setProgressObserver([phase, &context](const core::Progress& progress) {
        context.progress.show(phase, progress.done, progress.known);
    });
    checkForCaller(*processor);
    processor::executeSyncRun(processor);
    processor->setProgressObserver({});
}

} // namespace orlix::cli
