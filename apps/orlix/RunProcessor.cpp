// Running an operator from the command line: with progress, and stopped by Ctrl-C.
#include "RunProcessor.h"

#include "Interruption.h"

namespace orlix::cli {

void runWatched(const boost::shared_ptr<processor::BaseProcessor>& processor, const char* phase,
                CommandContext& context)
{
    throwIfInterrupted();
    processor->setProgressObserver([&processor, phase, &context](const core::Progress& progress) {
        if (isInterrupted()) {
            processor->requestCancellation();
        } else {
            context.progress.show(phase, progress.done, progress.known);
        }
    });
    try {
        processor::executeSyncRun(processor);
    } catch (...) {
        throwIfInterrupted(); // a cancelled run is a failed one
        throw;
    }
    throwIfInterrupted();
    processor->setProgressObserver({});
}

} // namespace orlix::cli
