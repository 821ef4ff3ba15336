// Running an operator from the command line, with progress.
#include "RunProcessor.h"

namespace orlix::cli {

void runWatched(const boost::shared_ptr<processor::BaseProcessor>& processor, const char* phase,
                CommandContext& context)
{
    processor->setProgressObserver([phase, &context](const core::Progress& progress) {
        context.progress.show(phase, progress.done, progress.known);
    });
    processor::executeSyncRun(processor);
    processor->setProgressObserver({});
}

} // namespace orlix::cli
