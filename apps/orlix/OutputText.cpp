// Values of outputs as people and programs read them.
#include "OutputText.h"

#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"

namespace orlix::cli {

namespace {

/// The record stands for what isn't there by the largest numbers, all behind this name.
std::string withoutDifference(const std::string& text)
{
    return text.substr(0, text.find("firstDifference: ")) +
           "firstDifference: none, firstValue1: none, firstValue2: none}";
}

/// By the names of the record. Counts and positions are whole numbers.
void writeComparison(JsonWriter& json, const imaproc::attr::CompareResult& result)
{
    json.beginObject();
    json.member("identical", result.identical);
    json.member("nbDifferentPixels", result.nbDifferentPixels);
    json.member("nbComparedPixels", result.nbComparedPixels);
    json.key("firstDifference");
    if (result.hasFirstDifference()) {
        json.beginObject();
        imaproc::attr::PixelPosition::visit(
            [&](const char* axis, auto member) { json.member(axis, result.firstDifference.*member); });
        json.endObject();
        json.member("firstValue1", result.firstValue1);
        json.member("firstValue2", result.firstValue2);
    } else {
        json.null();
        for (const char* const name : {"firstValue1", "firstValue2"}) {
            json.key(name);
            json.null();
        }
    }
    json.endObject();
}

} // namespace

std::optional<std::string> outputText(const processor::BaseAttribute& attribute)
{
    if (!attribute.isOutput()) {
        return std::nullopt;
    }
    const std::optional<std::string> text = attribute.getValueText();
    const auto* const comparison = dynamic_cast<const imaproc::attr::OutCompareResult*>(&attribute);
    const bool bNoDifference = text && comparison && !comparison->getDataItemNode().hasFirstDifference();
    return bNoDifference ? withoutDifference(*text) : text;
}

bool writeOutputMember(JsonWriter& json, const processor::BaseAttribute& attribute)
{
    const std::optional<std::string> text = outputText(attribute);
    if (!text) {
        return false;
    }
    json.key(attribute.getObjectName());
    if (const auto* const comparison = dynamic_cast<const imaproc::attr::OutCompareResult*>(&attribute)) {
        writeComparison(json, comparison->getDataItemNode());
    } else {
        json.value(*text);
    }
    return true;
}

} // namespace orlix::cli
