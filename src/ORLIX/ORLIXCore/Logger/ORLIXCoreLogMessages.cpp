// Messages of ORLIXCore.
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"

#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLog.h"
#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"

namespace orlix {

LibraryLog& MessageCatalogue<core::eORLIXCoreMessage>::log()
{
    return core::getORLIXCoreLog();
}

const std::vector<MessageText>& MessageCatalogue<core::eORLIXCoreMessage>::texts()
{
    using Message = core::eORLIXCoreMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eCancelled, "The run was cancelled before all of its work was done: run it again for a whole result"},
        {Message::eNeverRun, "There is nothing to wait for: start the action with run first"},
        {Message::eAlreadyRunning, "The action is running already: wait for its end, or run another one"},
        {Message::eUnknownException, "An exception of unknown type ended the run"},
        {Message::eProcessEnds,
         "The run was dropped before it began, since the process ends: wait for runs before that"},
        {Message::eLostByFork, "The run was under way on a thread of the process that this one was forked from: "
                               "wait there, or make a new action here"},
        {Message::eTooManyThreads, "%d threads were asked for, but at most %d can work at a time: give 0 to %d"},
        {Message::eGpuStaysOff, "GPU support stays off: %s"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<core::eORLIXCoreMessage> g_registration;

} // namespace

} // namespace orlix
