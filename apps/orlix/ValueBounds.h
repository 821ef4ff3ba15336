// The options --min and --max of verbs, against each other and against an element type.
#pragma once

#include "GivenValue.h"

#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include <optional>

namespace orlix::cli {

struct ValueBounds
{
    static constexpr const char* g_min = "--min";
    static constexpr const char* g_max = "--max";

    std::optional<GivenValue<double>> min;
    std::optional<GivenValue<double>> max;
};

/// Throws CommandException where the smaller bound is above the larger one.
void checkOrder(const ValueBounds& bounds);

/// The value of a bound, or the end of the type's range where it wasn't given. Throw CommandException where elements of
/// this type can't have that value.
double minOf(const ValueBounds& bounds, const image::eImageBufferType& type);
double maxOf(const ValueBounds& bounds, const image::eImageBufferType& type);

} // namespace orlix::cli
