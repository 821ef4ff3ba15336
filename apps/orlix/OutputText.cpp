// Values of outputs as people read them.
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

} // namespace orlix::cli
