// A text that remembers which message it was made from.
#pragma once

#include "ORLIX/ORLIXUtil/MessageNumber.h"

#include <string>
#include <utility>

namespace orlix {

/// What `formatMessage` makes, results carry and exceptions tell: a string in every use, and the number of its message
/// for who asks. A copy into a plain string leaves the number behind.
class NumberedText : public std::string
{
public:
    NumberedText() = default;
    NumberedText(std::string text) : std::string(std::move(text)) {} // NOLINT: a plain text has no number
    NumberedText(const char* text) : std::string(text) {}            // NOLINT: the same
    NumberedText(std::string text, MessageNumber number) : std::string(std::move(text)), m_number(std::move(number)) {}

    /// Empty where no catalogue made the text.
    const MessageNumber& getNumber() const noexcept { return m_number; }

private:
    MessageNumber m_number;
};

} // namespace orlix
