// Root of every exception of the family: what happened, which message says so, where, and what caused it.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"
#include "ORLIX/ORLIXUtil/NumberedText.h"
#include "ORLIX/ORLIXUtil/SourcePlace.h"

#include <boost/shared_ptr.hpp>

#include <exception>
#include <string>

namespace orlix {

/// Thrown for misuse and for failed synchronous runs. Copying never throws; copies share one record, which is never
/// changed, so an exception may be read from several threads.
class ORLIXUTIL_API BaseException : public std::exception
{
public:
    /// `function` is the full signature as the compiler spells it; `file` and `line` are the source's.
    BaseException(const std::string& message, const std::string& function, const std::string& file, int line);
    BaseException(const std::string& message, const std::string& function, const std::string& file, int line,
                  const BaseException& cause);
    BaseException(const std::string& message, const std::string& function, const std::string& file, int line,
                  const std::exception& cause);
    BaseException(const NumberedText& message, const SourcePlace& place);
    BaseException(const BaseException&) noexcept = default;
    BaseException& operator=(const BaseException&) noexcept = default;
    ~BaseException() override;

    /// The message alone, without place and cause.
    const char* what() const noexcept override;

    const NumberedText& getMessage() const noexcept;
    /// Which message of which catalogue it is; empty where the message came from none. That of a failed run is the
    /// failed step's own: a rule's, a split's, the run loop's.
    const MessageNumber& getMessageNumber() const noexcept;
    const std::string& getFunction() const noexcept;
    const std::string& getFile() const noexcept;
    int getLine() const noexcept;
    /// Is there a cause? True also for a cause without a text.
    bool hasCause() const noexcept;
    /// Message of the cause, then on further lines the causes of the cause; empty if there is none.
    const std::string& getCause() const noexcept;

private:
    struct Record;
    boost::shared_ptr<const Record> m_record;
};

/// Stands for a cause that is no std::exception; its message is empty.
class ORLIXUTIL_API UnHandleException : public BaseException
{
public:
    UnHandleException();
    ~UnHandleException() override;
};

} // namespace orlix
