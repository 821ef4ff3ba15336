// Values that options gave.
#pragma once

#include <string>

namespace orlix::cli {

/// A value, and how the user wrote it: messages say that and no other number.
template <class TValue>
struct GivenValue
{
    TValue value{};
    std::string text;
};

} // namespace orlix::cli
