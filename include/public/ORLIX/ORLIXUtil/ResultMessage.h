// The text of a result: nothing on success, the reason on failure.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"
#include "ORLIX/ORLIXUtil/NumberedText.h"

#include <memory>
#include <ostream>
#include <string>
#include <utility>

namespace orlix {

/// A text that is nearly always empty and costs no more than a null pointer then: results are made at every step of
/// every call.
class ResultMessage
{
public:
    ResultMessage() = default;
    ResultMessage(NumberedText text) // NOLINT: a text is a message
        : m_text(text.empty() ? nullptr : std::make_unique<const NumberedText>(std::move(text)).release())
    {}
    ResultMessage(const ResultMessage& other)
        : m_text(other.isOwned() ? std::make_unique<const NumberedText>(*other.m_text).release() : other.m_text.get())
    {}
    ResultMessage(ResultMessage&&) noexcept = default;
    ResultMessage& operator=(const ResultMessage& other) { return *this = ResultMessage(other); }
    ResultMessage& operator=(ResultMessage&&) noexcept = default;

    /// That memory ran out. Neither this message nor a copy of it allocates.
    static ResultMessage outOfMemory() noexcept
    {
        ResultMessage message;
        message.m_text.reset(&outOfMemoryText());
        return message;
    }

    const NumberedText& get() const { return m_text ? *m_text : emptyText(); }
    operator const NumberedText&() const { return get(); } // NOLINT: a message is a text
    bool empty() const { return !m_text; }

    friend bool operator==(const ResultMessage& message, const std::string& text) { return message.get() == text; }
    friend std::ostream& operator<<(std::ostream& stream, const ResultMessage& message)
    {
        return stream << message.get();
    }

private:
    struct Release
    {
        void operator()(const NumberedText* text) const noexcept
        {
            if (text != &outOfMemoryText()) {
                std::default_delete<const NumberedText>()(text);
            }
        }
    };

    ORLIXUTIL_API static const NumberedText& emptyText();
    ORLIXUTIL_API static const NumberedText& outOfMemoryText() noexcept;
    bool isOwned() const { return m_text && m_text.get() != &outOfMemoryText(); }

    std::unique_ptr<const NumberedText, Release> m_text;
};

} // namespace orlix
