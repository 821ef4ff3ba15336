// Raising an error: the one way by which the family throws.
#pragma once

#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIX/ORLIXUtil/SourcePlace.h"

#include <exception>
#include <initializer_list>
#include <string>

namespace orlix {

namespace details {

using ExceptionMaker = std::exception_ptr (*)(const NumberedText& message, const SourcePlace& place);

template <class TException>
std::exception_ptr makeException(const NumberedText& message, const SourcePlace& place)
{
    return std::make_exception_ptr(TException(message, place));
}

[[noreturn]] ORLIXUTIL_API void raise(const SourcePlace& place, const CatalogueAccess& catalogue, int id,
                                      ExceptionMaker makeException, std::initializer_list<MessageArgument> arguments,
                                      const MessageNumber& cause = {});

} // namespace details

/// Builds message `id` of the catalogue, logs it as an error through the catalogue's logger and throws it as the
/// catalogue's exception: `raise<eRuleMessage>(ORLIX_HERE, eRuleMessage::eExpired)`. If the formatter or the logger
/// fails, a plain BaseException "Exception thrown while processing message" with the cause is thrown instead; nothing
/// else ever leaves this function. May be called from any thread.
template <class TEnum, class... TArgs>
[[noreturn]] void raise(const SourcePlace& place, typename TEnum::domain id, const TArgs&... args)
{
    using Exception = typename MessageCatalogue<TEnum>::Exception;
    details::raise(place, details::catalogueAccess<TEnum>(), static_cast<int>(id), &details::makeException<Exception>,
                   {details::messageArgument(args)...});
}

/// The same for a message that hands on the text of a failure, its one argument: the exception tells the number of the
/// failure's own message, and that of message `id` only where the failure has none.
template <class TEnum>
[[noreturn]] void raiseFailure(const SourcePlace& place, typename TEnum::domain id, const NumberedText& failure)
{
    using Exception = typename MessageCatalogue<TEnum>::Exception;
    details::raise(place, details::catalogueAccess<TEnum>(), static_cast<int>(id), &details::makeException<Exception>,
                   {details::messageArgument(failure)}, failure.getNumber());
}

} // namespace orlix
