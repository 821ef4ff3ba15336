// Options that tell a region of an image: where it begins, and how large it is.
#pragma once

#include "GivenValue.h"
#include "OptionList.h"

#include <optional>
#include <string>

namespace orlix::cli {

/// Whole numbers along x, y and, where one was given, z.
struct AxisNumbers
{
    unsigned long x = 0;
    unsigned long y = 0;
    std::optional<unsigned long> z;
};

using GivenNumbers = std::optional<GivenValue<AxisNumbers>>; ///< empty until the option was given

inline constexpr const char* g_at = "--at";

/// Declares --at X,Y[,Z]. `at` has to outlive the parser, as in the others.
Option addOffsetOption(OptionList& list, GivenNumbers& at, const std::string& description);

/// Declares a size W,H[,D], each from 1 on: files hold no images without pixels.
Option addSizeOption(OptionList& list, const std::string& name, GivenNumbers& size, const std::string& description);

struct PlacedSize
{
    AxisNumbers at, size;
};

/// Declares --region WxH+X+Y.
Option addRegionOption(OptionList& list, std::optional<GivenValue<PlacedSize>>& region, const std::string& description);

} // namespace orlix::cli
