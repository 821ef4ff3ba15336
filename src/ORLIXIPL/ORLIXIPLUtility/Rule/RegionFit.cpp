#include "ORLIXIPL/ORLIXIPLUtility/Rule/RegionFit.h"

#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc::util {

namespace {

std::string joined(const RegionAxes& axes, unsigned long RegionAxis::*value, const char* separator)
{
    std::string text;
    for (const RegionAxis& axis : axes) {
        text.append(text.empty() ? "" : separator).append(numberText(axis.*value));
    }
    return text;
}

/// Two numbers of 64 bits added without bounds.
std::string sumText(unsigned long a, unsigned long b)
{
    unsigned long sum = 0;
    if (!__builtin_add_overflow(a, b, &sum)) {
        return numberText(sum);
    }
    // 2^64 is 18446744073709551616; in two decimal parts no addition overflows.
    constexpr unsigned long unit = 10'000'000'000UL;
    const unsigned long low = sum % unit + 18446744073709551615UL % unit + 1;
    const unsigned long high = sum / unit + 18446744073709551615UL / unit + low / unit;
    const std::string tail = numberText(low % unit);
    return numberText(high) + std::string(10 - tail.size(), '0') + tail;
}

} // namespace

NumberedText describeRegionMisfit(const BaseImageAttribute& image, const RegionAxes& axes)
{
    const std::string sizes = joined(axes, &RegionAxis::size, "x");
    const std::string offsets = joined(axes, &RegionAxis::offset, ", ");
    const bool bVolume = image.getImage().getGeometry().getVolumeGeometry().is3d();
    std::string imageSizes;
    for (const RegionAxis& axis : axes) {
        if (bVolume || imageSizes.empty() || &axis == axes.begin() + 1) {
            imageSizes.append(imageSizes.empty() ? "" : "x").append(numberText(axis.imageSize));
        }
    }
    for (const RegionAxis& axis : axes) {
        if (axis.offset > axis.imageSize || axis.size > axis.imageSize - axis.offset) {
            return formatMessage<eImageRuleMessage>(eImageRuleMessage::eRegionOutside, image.getObjectName(),
                                                    imageSizes, sizes, offsets, axis.name,
                                                    sumText(axis.offset, axis.size));
        }
    }
    return axes.size() < 3 || bVolume
               ? NumberedText()
               : formatMessage<eImageRuleMessage>(eImageRuleMessage::eRegionNeedsVolume, image.getObjectName(),
                                                  imageSizes, sizes, offsets);
}

} // namespace orlix::imaproc::util
