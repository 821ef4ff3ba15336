// Where in the source something happened.
#pragma once

namespace orlix {

struct SourcePlace
{
    const char* function; ///< full signature as the compiler spells it
    const char* file;
    int line;
};

} // namespace orlix

/// The place of this very line. A macro, since Clang 14 lacks std::source_location.
#define ORLIX_HERE (::orlix::SourcePlace{static_cast<const char*>(__PRETTY_FUNCTION__), __FILE__, __LINE__})
