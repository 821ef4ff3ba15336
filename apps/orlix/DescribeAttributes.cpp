// What verbs print about the attributes of a processor, in the attributes' own words.
#include "DescribeAttributes.h"

#include "PlainText.h"

#include <algorithm>
#include <sstream>

namespace orlix::cli {

namespace {

using processor::BaseAttribute;
using processor::BaseProcessor;

constexpr std::size_t g_columns = 100;

std::optional<std::string> defaultOf(const BaseAttribute& attribute)
{
    return attribute.isOptional() ? attribute.getDefaultText() : std::nullopt;
}

/// "Image to copy (input: image)"
std::string describe(const BaseProcessor& processor, const BaseAttribute& attribute)
{
    std::string text = attribute.getToolTip() + (attribute.isOptional() ? " (optional " : " (");
    text += (attribute.isOutput() ? "output: " : "input: ") + attribute.getValueKind();
    if (const std::optional<std::string> value = defaultOf(attribute)) {
        text += ", default " + *value;
    }
    if (attribute.isOutput() && isRequired(processor, attribute)) {
        text += ", has to be there before the run";
    }
    return printable(text + ")");
}

/// The words of `text` in lines from column `indent` on, for a first line that has come so far already.
std::string wrapped(const std::string& text, std::size_t indent)
{
    std::istringstream words(text);
    std::string lines;
    std::size_t column = indent;
    for (std::string word; words >> word; column += word.size()) {
        if (column > indent && column + 1 + word.size() > g_columns) {
            lines += '\n' + std::string(indent, ' ');
            column = indent;
        } else if (column > indent) {
            lines += ' ';
            ++column;
        }
        lines += word;
    }
    return lines;
}

} // namespace

bool isRequired(const BaseProcessor& processor, const BaseAttribute& attribute)
{
    return !attribute.isOptional() && !(attribute.isOutput() && processor.makesOutput(attribute.getObjectName()));
}

std::string describeAttributes(const BaseProcessor& processor)
{
    std::size_t width = 0;
    for (const std::string& name : processor.getAttributeNameColl()) {
        width = std::max(width, name.size());
    }
    std::string text;
    for (const auto& attribute : processor.getAttributeColl()) {
        std::string name = "  " + printable(attribute->getObjectName());
        name.resize(width + 4, ' ');
        text += name + wrapped(describe(processor, *attribute), name.size()) + '\n';
    }
    return text;
}

void writeAttributes(JsonWriter& json, const BaseProcessor& processor)
{
    json.beginArray();
    for (const auto& attribute : processor.getAttributeColl()) {
        json.beginObject();
        json.member("name", attribute->getObjectName());
        json.member("toolTip", attribute->getToolTip());
        json.member("direction", attribute->isOutput() ? "output" : "input");
        json.member("kind", attribute->getValueKind());
        json.member("required", isRequired(processor, *attribute));
        json.key("default");
        const std::optional<std::string> value = defaultOf(*attribute);
        value ? json.value(*value) : json.null();
        json.endObject();
    }
    json.endArray();
}

} // namespace orlix::cli
