#include "ORLIX/ORLIXBaseProcessing/DataItemTable.h"

#include <algorithm>

namespace orlix::processor::details {

namespace {

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool isOneOf(const std::string& text, const std::vector<std::string>& names)
{
    return std::ranges::any_of(names, [&](const std::string& name) { return isSameName(text, name); });
}

} // namespace

std::optional<std::vector<NamedText>> splitNamedTexts(const std::string& text)
{
    std::vector<NamedText> parts;
    if (trimmed(text).empty()) {
        return parts;
    }
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        const std::string part = text.substr(start, end - start);
        const std::size_t sign = part.find('=');
        if (sign == std::string::npos) {
            return std::nullopt;
        }
        parts.push_back({trimmed(part.substr(0, sign)), trimmed(part.substr(sign + 1))});
        start = end + 1;
    }
    return parts;
}

bool hasNames(const std::vector<std::string>& fields, const std::vector<std::string>& names)
{
    return std::ranges::any_of(fields, [&](const std::string& field) { return isOneOf(field, names); });
}

std::string findColumnFlaw(const std::vector<std::string>& fields, const std::vector<std::string>& names,
                           unsigned long& field)
{
    std::vector<std::string> former;
    for (field = 0; field < fields.size(); ++field) {
        if (!isOneOf(fields[field], names)) {
            std::string all;
            for (const std::string& name : names) {
                all.append(all.empty() ? "" : ", ").append(name);
            }
            return "there is no column " + fields[field] + ": give " + all;
        }
        if (isOneOf(fields[field], former)) {
            return "column " + fields[field] + " is given twice: give it once";
        }
        former.push_back(fields[field]);
    }
    return "";
}

} // namespace orlix::processor::details
