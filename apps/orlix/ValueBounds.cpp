// The options --min and --max of verbs, against each other and against an element type.
#include "ValueBounds.h"

#include "CommandMessages.h"
#include "PlainText.h"

#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::cli {

namespace {

double boundOf(const char* option, const std::optional<GivenValue<double>>& bound, const image::eImageBufferType& type,
               double whole)
{
    const double smallest = image::getMinValue(type);
    const double largest = image::getMaxValue(type);
    if (bound && !(bound->value >= smallest && bound->value <= largest)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBeyondType, option, bound->text,
                               image::getBufferTypeName(type), shortest(smallest), shortest(largest));
    }
    return bound ? bound->value : whole;
}

} // namespace

void checkOrder(const ValueBounds& bounds)
{
    const auto& [min, max] = bounds;
    if (min && max && min->value > max->value) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBoundsCross, ValueBounds::g_min, min->text,
                               ValueBounds::g_max, max->text);
    }
}

double minOf(const ValueBounds& bounds, const image::eImageBufferType& type)
{
    return boundOf(ValueBounds::g_min, bounds.min, type, image::getMinValue(type));
}

double maxOf(const ValueBounds& bounds, const image::eImageBufferType& type)
{
    return boundOf(ValueBounds::g_max, bounds.max, type, image::getMaxValue(type));
}

} // namespace orlix::cli
