// Reading the numbers of regions.
#include "RegionOptions.h"

#include "CommandMessages.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <vector>

namespace orlix::cli {

namespace {

using Numbers = std::optional<std::vector<unsigned long>>;

/// Whole numbers with these characters between them, one after each but the last; nothing for any other text.
Numbers readNumbers(std::string_view text, std::string_view separators)
{
    std::vector<unsigned long> numbers;
    const char* next = text.data();
    const char* const end = next + text.size();
    for (std::size_t i = 0; i <= separators.size(); ++i) {
        unsigned long number = 0;
        const auto [stop, error] = std::from_chars(next, end, number);
        if (error != std::errc()) {
            return std::nullopt;
        }
        numbers.push_back(number);
        next = stop;
        if (i < separators.size() && (next == end || *next++ != separators[i])) {
            return std::nullopt;
        }
    }
    return next == end ? Numbers(numbers) : std::nullopt;
}

std::optional<std::string> refused(const char* expected, const std::string& text)
{
    return formatMessage<eCommandMessage>(eCommandMessage::eBadOption, expected, text, "");
}

/// Two or three numbers with commas between them.
OptionList::Read readAxes(GivenNumbers& value, unsigned long smallest, const char* expected)
{
    return [&value, smallest, expected](const std::string& text) -> std::optional<std::string> {
        Numbers numbers = readNumbers(text, ",,");
        numbers = numbers ? numbers : readNumbers(text, ",");
        if (!numbers || *std::ranges::min_element(*numbers) < smallest) {
            return refused(expected, text);
        }
        AxisNumbers axes = {(*numbers)[0], (*numbers)[1], std::nullopt};
        if (numbers->size() == 3) {
            axes.z = (*numbers)[2];
        }
        value = {axes, text};
        return std::nullopt;
    };
}

} // namespace

Option addOffsetOption(OptionList& list, GivenNumbers& at, const std::string& description)
{
    return list.add(g_at, readAxes(at, 0, "X,Y or X,Y,Z, whole numbers from 0 on"), description).valueName("X,Y[,Z]");
}

Option addSizeOption(OptionList& list, const std::string& name, GivenNumbers& size, const std::string& description)
{
    return list.add(name, readAxes(size, 1, "W,H or W,H,D, whole numbers from 1 on"), description).valueName("W,H[,D]");
}

Option addRegionOption(OptionList& list, std::optional<GivenValue<PlacedSize>>& region, const std::string& description)
{
    const auto read = [&region](const std::string& text) -> std::optional<std::string> {
        const Numbers numbers = readNumbers(text, "x++");
        if (!numbers || (*numbers)[0] == 0 || (*numbers)[1] == 0) {
            return refused("WxH+X+Y, whole numbers, W and H from 1 on", text);
        }
        const auto& n = *numbers;
        region = {{.at = {n[2], n[3], std::nullopt}, .size = {n[0], n[1], std::nullopt}}, text};
        return std::nullopt;
    };
    return list.add("--region", read, description).valueName("WxH+X+Y");
}

} // namespace orlix::cli
