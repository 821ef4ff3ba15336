// Numbers in texts, read strictly and written so that they come back exactly, whatever the locale.
#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace orlix::image::io {

/// The number that `text` is, without anything around it.
template <class T>
std::optional<T> numberFrom(std::string_view text)
{
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

inline std::string textOf(float value)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

} // namespace orlix::image::io
