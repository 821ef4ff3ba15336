// Options whose value is an angle.
#include "AngleOption.h"

#include "CommandMessages.h"

#include "ORLIX/ORLIXUtil/NumberText.h"

#include <cmath>
#include <numbers>

namespace orlix::cli {

std::optional<double> readAngle(const std::string& text)
{
    constexpr std::string_view radians = "rad";
    const bool bRadians = text.ends_with(radians);
    const std::string digits = bRadians ? text.substr(0, text.size() - radians.size()) : text;
    double angle = 0.0;
    if (!readNumber(digits, angle) || !std::isfinite(angle)) {
        return std::nullopt;
    }
    return bRadians ? angle : angle / 180.0 * std::numbers::pi;
}

Option addAngleOption(OptionList& list, const std::string& name, std::optional<GivenValue<double>>& angle,
                      const std::string& description)
{
    const auto read = [&angle](const std::string& text) -> std::optional<std::string> {
        const std::optional<double> given = readAngle(text);
        if (!given) {
            return formatMessage<eCommandMessage>(eCommandMessage::eBadOption,
                                                  "an angle in degrees, or in radians with rad behind it", text, "");
        }
        angle = {*given, text};
        return std::nullopt;
    };
    return list.add(name, read, description).valueName("DEGREES");
}

} // namespace orlix::cli
