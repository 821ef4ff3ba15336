// Numbered messages of a library: how an enumeration becomes a catalogue, and how a text is had from it.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"
#include "ORLIX/ORLIXUtil/LogMessageFormater.h"
#include "ORLIX/ORLIXUtil/NumberedText.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

namespace orlix {

class LibraryLog;
class LogMessageManager;

struct MessageText
{
    int id;
    const char* text;
};

/// Specialise next to each catalogue enumeration, exported, with the functions out of line:
///
///     using Exception = ...;                        // the library's, constructible from (std::string, SourcePlace)
///     static LibraryLog& log();                     // the library's
///     static const std::vector<MessageText>& texts();
///
/// All of them are called from any thread and from static initialisers, so they return function-local statics.
template <class TEnum>
struct MessageCatalogue;

namespace details {

/// A catalogue without its type, so that the work on it is compiled once.
struct CatalogueAccess
{
    const char* key;
    LibraryLog& (*log)();
    const std::vector<MessageText>& (*texts)();
};

/// An argument that is turned into text only where a failure of doing so can be handled. Refers to the caller's value.
struct MessageArgument
{
    const void* value;
    void (*append)(LogMessageFormater&, const void*);
};

template <class TEnum>
CatalogueAccess catalogueAccess()
{
    using Catalogue = MessageCatalogue<TEnum>;
    return {typeid(typename TEnum::domain).name(), &Catalogue::log, &Catalogue::texts};
}

template <class T>
MessageArgument messageArgument(const T& value)
{
    return {std::addressof(value),
            [](LogMessageFormater& formatter, const void* argument) { formatter % *static_cast<const T*>(argument); }};
}

ORLIXUTIL_API void fillCatalogue(const CatalogueAccess& catalogue);
ORLIXUTIL_API void withdrawCatalogue(const CatalogueAccess& catalogue) noexcept;
ORLIXUTIL_API MessageNumber messageNumber(const CatalogueAccess& catalogue, int id);
ORLIXUTIL_API NumberedText formatMessage(const CatalogueAccess& catalogue, int id,
                                         std::initializer_list<MessageArgument> arguments);

} // namespace details

/// What results and exceptions tell of message `id`: `error.getMessageNumber() ==
/// messageNumber<eRuleMessage>(eRuleMessage::eExpired)`.
template <class TEnum>
MessageNumber messageNumber(typename TEnum::domain id)
{
    return details::messageNumber(details::catalogueAccess<TEnum>(), static_cast<int>(id));
}

/// The text of message `id` with its arguments, and its number. Fills the catalogue first if need be, so it may be
/// called before the static initialisers of other files ran. Raises ORLIXUtilException if the id or the number of
/// arguments is wrong.
template <class TEnum, class... TArgs>
NumberedText formatMessage(typename TEnum::domain id, const TArgs&... args)
{
    return details::formatMessage(details::catalogueAccess<TEnum>(), static_cast<int>(id),
                                  {details::messageArgument(args)...});
}

} // namespace orlix
