// Names and ranges of the element types.
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"

namespace orlix::image {

namespace {

struct Range
{
    double min, max;
};

Range rangeOf(const eImageBufferType& type)
{
    if (type == eImageBufferType::eBufferBinary) {
        return {0, 1};
    }
    Range range{};
    const bool bKnown = visitStorageType(type, [&]<class T>() {
        range = {static_cast<double>(NumericLimits<T>::s_min), static_cast<double>(NumericLimits<T>::s_max)};
    });
    if (!bKnown) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eUnknownBufferType, static_cast<int>(type));
    }
    return range;
}

} // namespace

double getMinValue(const eImageBufferType& type)
{
    return rangeOf(type).min;
}

double getMaxValue(const eImageBufferType& type)
{
    return rangeOf(type).max;
}

const char* getBufferTypeName(const eImageBufferType& type)
{
    static constexpr const char* names[] = {"none",   "Int8",   "UInt8",  "Int16",      "UInt16",     "Int32",
                                            "UInt32", "Real32", "Binary", "UInt16Like", "UInt32Like", "UInt8Like"};
    const auto value = static_cast<unsigned>(static_cast<eImageBufferType::domain>(type));
    return value < std::size(names) ? names[value] : "unknown";
}

} // namespace orlix::image
