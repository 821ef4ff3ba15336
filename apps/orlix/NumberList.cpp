// Options whose value is a few whole numbers: sizes and places of images.
#include "NumberList.h"

#include "CommandMessages.h"

#include "ORLIX/ORLIXUtil/NumberText.h"

#include <optional>

namespace orlix::cli {

namespace {

/// The numbers of the text; none where a part of it is no number.
std::optional<std::vector<unsigned long>> readList(const std::string& text)
{
    std::vector<unsigned long> numbers;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        unsigned long number = 0;
        if (!readNumber(text.substr(start, end - start), number)) {
            return std::nullopt;
        }
        numbers.push_back(number);
        start = end + 1;
    }
    return numbers;
}

} // namespace

Option addNumberList(OptionList& list, const std::string& name, std::vector<unsigned long>& numbers,
                     unsigned long fewest, unsigned long most, const std::string& description)
{
    const std::string count =
        fewest == most ? numberText(fewest) : numberText(fewest) + " to " + numberText(most); // of the numbers
    const auto read = [&numbers, fewest, most, count](const std::string& text) -> std::optional<std::string> {
        const std::optional<std::vector<unsigned long>> given = readList(text);
        if (!given || given->size() < fewest || given->size() > most) {
            return formatMessage<eCommandMessage>(eCommandMessage::eBadOption,
                                                  count + " whole numbers with commas between", text, "");
        }
        numbers = *given;
        return std::nullopt;
    };
    return list.add(name, read, description);
}

std::string listText(const std::vector<unsigned long>& numbers)
{
    std::string text;
    for (const unsigned long number : numbers) {
        text.append(text.empty() ? "" : ",").append(numberText(number));
    }
    return text;
}

} // namespace orlix::cli
