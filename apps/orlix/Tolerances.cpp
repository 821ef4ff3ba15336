// The tolerances of a comparison, as people give them.
#include "Tolerances.h"

#include "CommandMessages.h"
#include "PlainText.h"

#include "ORLIX/ORLIXBaseProcessing/ValueText.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace orlix::cli {

namespace {

constexpr float g_largest = std::numeric_limits<float>::max();

/// The smallest tolerance that comparisons of elements of this type can't hold.
float firstBeyond(const image::eImageBufferType& type)
{
    float first = std::numeric_limits<float>::infinity();
    image::visitStorageType(type, [&first]<class T>() {
        if constexpr (std::is_same_v<T, signed char>) {
            first = 0x1p15F;
        } else if constexpr (std::is_same_v<T, unsigned char>) {
            first = 0x1p16F;
        } else if constexpr (std::is_same_v<T, unsigned int>) {
            first = 0x1p32F;
        } else if constexpr (std::is_integral_v<T>) {
            first = 0x1p31F;
        }
    });
    return first;
}

} // namespace

Option addToleranceOption(OptionList& options, const std::string& name, std::optional<GivenTolerance>& tolerance,
                          const std::string& description)
{
    const auto read = [&tolerance](const std::string& text) -> std::optional<std::string> {
        float number = 0;
        if (!processor::ValueText<float>::read(text, number) || !(number >= 0 && number <= g_largest)) {
            return formatMessage<eCommandMessage>(eCommandMessage::eBadOption,
                                                  "a number from 0 to " + shortest(g_largest), text, "");
        }
        tolerance = {number, text};
        return std::nullopt;
    };
    return options.add(name, read, description);
}

void checkAbsoluteTolerance(const std::string& option, const GivenTolerance& tolerance,
                            const image::BaseImageGeometry& geometry)
{
    for (unsigned long t = 0; t < geometry.getSizeT(); ++t) {
        const image::eImageBufferType type = geometry.getBufferType(t);
        const float first = firstBeyond(type);
        if (tolerance.value >= first) {
            const float largest = std::floor(std::nextafter(first, 0.0F)); // integers drop the fraction
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBeyondTolerance, option, tolerance.text,
                                   image::getBufferTypeName(type), static_cast<unsigned long>(largest));
        }
    }
}

} // namespace orlix::cli
