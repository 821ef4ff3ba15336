// The text of a result: nothing on success, the reason on failure.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <memory>
#include <ostream>
#include <string>
#include <utility>

namespace orlix {

/// A string that is nearly always empty and costs no more than a null pointer then: results are made at every step of
/// every call.
class ResultMessage
{
public:
    ResultMessage() = default;
    ResultMessage(std::string text) // NOLINT: a text is a message
        : m_text(text.empty() ? nullptr : std::make_unique<const std::string>(std::move(text)))
    {}
    ResultMessage(const ResultMessage& other)
        : m_text(other.m_text ? std::make_unique<const std::string>(*other.m_text) : nullptr)
    {}
    ResultMessage(ResultMessage&&) noexcept = default;
    ResultMessage& operator=(const ResultMessage& other)
    {
        return *this = ResultMessage(other);
    }
    ResultMessage& operator=(ResultMessage&&) noexcept = default;

    const std::string& get() const { return m_text ? *m_text : emptyText(); }
    operator const std::string&() const { return get(); } // NOLINT: a message is a text
    bool empty() const { return !m_text; }

    friend bool operator==(const ResultMessage& message, const std::string& text) { return message.get() == text; }
    friend std::ostream& operator<<(std::ostream& stream, const ResultMessage& message) { return stream << message.get(); }

private:
    ORLIXUTIL_API static const std::string& emptyText();

    std::unique_ptr<const std::string> m_text;
};

} // namespace orlix
