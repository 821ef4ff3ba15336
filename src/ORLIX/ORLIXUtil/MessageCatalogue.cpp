// Texts out of a catalogue whose type is erased.
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"

namespace orlix::details {

void fillCatalogue(const CatalogueAccess& catalogue)
{
    LogMessageManager& manager = catalogue.manager();
    for (const MessageText& message : catalogue.texts()) {
        manager.addMessage(catalogue.key, message.id, message.text);
    }
}

std::string formatMessage(const CatalogueAccess& catalogue, int id, std::initializer_list<MessageArgument> arguments)
{
    LogMessageManager& manager = catalogue.manager();
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
