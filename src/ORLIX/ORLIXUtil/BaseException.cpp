// Root of every exception of the family.
#include "ORLIX/ORLIXUtil/BaseException.h"

#include <boost/make_shared.hpp>

namespace orlix {

struct BaseException::Record
{
    NumberedText message;
    std::string function;
    std::string file;
    int line;
    bool bHasCause;
    std::string cause;
};

namespace {

std::string describeCauses(const BaseException& cause)
{
    std::string causes = cause.getMessage();
    return cause.getCause().empty() ? causes : causes + "\n" + cause.getCause();
}

std::string describeCauses(const std::exception& cause)
{
    const auto* base = dynamic_cast<const BaseException*>(&cause);
    return base != nullptr ? describeCauses(*base) : std::string(cause.what());
}

} // namespace

BaseException::BaseException(const std::string& message, const std::string& function, const std::string& file, int line)
    : m_record(boost::make_shared<Record>(Record{message, function, file, line, false, {}}))
{}

BaseException::BaseException(const std::string& message, const std::string& function, const std::string& file, int line,
                             const BaseException& cause)
    : m_record(boost::make_shared<Record>(Record{message, function, file, line, true, describeCauses(cause)}))
{}

BaseException::BaseException(const std::string& message, const std::string& function, const std::string& file, int line,
                             const std::exception& cause)
    : m_record(boost::make_shared<Record>(Record{message, function, file, line, true, describeCauses(cause)}))
{}

BaseException::BaseException(const NumberedText& message, const SourcePlace& place)
    : m_record(boost::make_shared<Record>(Record{message, place.function, place.file, place.line, false, {}}))
{}

BaseException::~BaseException() = default;

const char* BaseException::what() const noexcept
{
    return m_record->message.c_str();
}

const NumberedText& BaseException::getMessage() const noexcept
{
    return m_record->message;
}

const MessageNumber& BaseException::getMessageNumber() const noexcept
{
    return m_record->message.getNumber();
}

const std::string& BaseException::getFunction() const noexcept
{
    return m_record->function;
}

const std::string& BaseException::getFile() const noexcept
{
    return m_record->file;
}

int BaseException::getLine() const noexcept
{
    return m_record->line;
}

bool BaseException::hasCause() const noexcept
{
    return m_record->bHasCause;
}

const std::string& BaseException::getCause() const noexcept
{
    return m_record->cause;
}

UnHandleException::UnHandleException() : BaseException({}, {}, {}, 0) {}

UnHandleException::~UnHandleException() = default;

} // namespace orlix
