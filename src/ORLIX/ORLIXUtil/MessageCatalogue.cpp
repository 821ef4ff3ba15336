// Texts out of a catalogue whose type is erased.
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

namespace orlix::details {

void fillCatalogue(const CatalogueAccess& catalogue)
{
    LogMessageManager& manager = catalogue.log().getMessageManager();
    for (const MessageText& message : catalogue.texts()) {
        manager.addMessage(catalogue.key, message.id, message.text);
    }
}

void withdrawCatalogue(const CatalogueAccess& catalogue) noexcept
{
    try {
        catalogue.log().getMessageManager().removeMessages(catalogue.key);
    } catch (...) {
        // Out of memory while the library goes away: the manager keeps texts that nobody asks for.
    }
}

std::string formatMessage(const CatalogueAccess& catalogue, int id, std::initializer_list<MessageArgument> arguments)
{
    LogMessageManager& manager = catalogue.log().getMessageManager();
    if (!manager.hasMessage(catalogue.key, id)) {
        fillCatalogue(catalogue);
    }
    LogMessageFormater formatter(manager);
    formatter.setMsgId(catalogue.key, id);
    for (const MessageArgument& argument : arguments) {
        argument.append(formatter, argument.value);
    }
    return formatter.string();
}

} // namespace orlix::details
