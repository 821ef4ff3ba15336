// Raising an error, and what happens when that itself fails.
#include "ORLIX/ORLIXUtil/Raise.h"

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

namespace orlix::details {

namespace {

constexpr const char* g_failedMessage = "Exception thrown while processing message";

void logFailedMessage(const SourcePlace& place) noexcept
{
    try {
        logMessage(getBaseLoggerName(), g_errorLogLevel, std::string(g_failedMessage) + " in " + place.function,
                   place.file, place.line);
    } catch (...) {
        // The exception that follows tells of the failure; a broken appender must not hide it.
    }
}

/// Formats and logs the message and makes the exception; all that may go wrong goes wrong in here.
std::exception_ptr prepare(const SourcePlace& place, const CatalogueAccess& catalogue, int id,
                           ExceptionMaker makeException, std::initializer_list<MessageArgument> arguments,
                           const MessageNumber& cause)
{
    NumberedText message = formatMessage(catalogue, id, arguments);
    if (!cause.empty()) {
        message = NumberedText(std::move(message), cause);
    }
    logMessage(catalogue.log().getLoggerName(), g_errorLogLevel, message, place.file, place.line);
    return makeException(message, place);
}

} // namespace

void raise(const SourcePlace& place, const CatalogueAccess& catalogue, int id, ExceptionMaker makeException,
           std::initializer_list<MessageArgument> arguments, const MessageNumber& cause)
{
    std::exception_ptr exception;
    try {
        exception = prepare(place, catalogue, id, makeException, arguments, cause);
    } catch (const BaseException& cause) {
        logFailedMessage(place);
        throw BaseException(g_failedMessage, place.function, place.file, place.line, cause);
    } catch (const std::exception& cause) {
        logFailedMessage(place);
        throw BaseException(g_failedMessage, place.function, place.file, place.line, cause);
    } catch (...) {
        logFailedMessage(place);
        throw BaseException(g_failedMessage, place.function, place.file, place.line, UnHandleException());
    }
    std::rethrow_exception(exception);
}

} // namespace orlix::details
