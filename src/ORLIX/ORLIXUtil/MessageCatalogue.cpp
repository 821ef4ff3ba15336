// Texts out of a catalogue whose type is erased.
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include <boost/core/demangle.hpp>

#include <string_view>

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

MessageNumber messageNumber(const CatalogueAccess& catalogue, int id)
{
    constexpr std::string_view nested = "::domain"; // keys are those of the enumerations inside
    std::string name = boost::core::demangle(catalogue.key);
    if (name.ends_with(nested)) {
        name.resize(name.size() - nested.size());
    }
    return {std::move(name), id};
}

NumberedText formatMessage(const CatalogueAccess& catalogue, int id, std::initializer_list<MessageArgument> arguments)
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
    return {formatter.string(), messageNumber(catalogue, id)};
}

} // namespace orlix::details
