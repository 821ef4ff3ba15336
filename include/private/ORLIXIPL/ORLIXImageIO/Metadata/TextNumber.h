// Numbers in texts that files hold.
#pragma once

#include "ORLIX/ORLIXUtil/NumberText.h"

#include <optional>
#include <string_view>

namespace orlix::image::io {

/// The number that `text` is, without anything around it.
template <class T>
std::optional<T> numberFrom(std::string_view text)
{
    T value{};
    return readNumber(text, value) ? std::optional<T>(value) : std::nullopt;
}

} // namespace orlix::image::io
