// Result of a step that may fail in an expected way: a value and, on failure, the reason.
#pragma once

#include "ORLIX/ORLIXUtil/ResultMessage.h"

#include <string>
#include <utility>

namespace orlix {

/// What a step gives back. Success carries an empty message; a failure carries T() and the reason, which travels up
/// the levels unchanged, and with it the number of its message where a catalogue made it. A result may not be dropped
/// silently.
template <class T>
class [[nodiscard]] ProcessingResult
{
public:
    ProcessingResult() = default;
    ProcessingResult(T value) : m_value(std::move(value)) {} // NOLINT: a plain value is a result
    ProcessingResult(T value, NumberedText message) : m_value(std::move(value)), m_message(std::move(message)) {}

    const T& getValue() const { return m_value; }
    const NumberedText& getMessage() const { return m_message.get(); }

private:
    T m_value{};
    ResultMessage m_message;
};

/// The result of nearly every step: did it work, and if not, why.
template <>
class [[nodiscard]] ProcessingResult<bool>
{
public:
    ProcessingResult() = default;
    ProcessingResult(bool value) : m_bValue(value) {} // NOLINT: a plain value is a result
    ProcessingResult(bool value, NumberedText message) : m_bValue(value), m_message(std::move(message)) {}

    bool getValue() const { return m_bValue; }
    const NumberedText& getMessage() const { return m_message.get(); }
    explicit operator bool() const { return m_bValue; }

    [[nodiscard]] static ProcessingResult success() { return {true}; }
    [[nodiscard]] static ProcessingResult failure(NumberedText message) { return {false, std::move(message)}; }
    /// A failure whose text needs no memory.
    [[nodiscard]] static ProcessingResult outOfMemory() noexcept
    {
        ProcessingResult result;
        result.m_message = ResultMessage::outOfMemory();
        return result;
    }

private:
    bool m_bValue = false;
    ResultMessage m_message;
};

using BoolResult = ProcessingResult<bool>;

} // namespace orlix
