// orlix normal: a new image of normal random values, by gaussianRandomImg's processor.
#include "CommandMessages.h"
#include "NewImage.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl1.h"

namespace orlix::cli {

namespace {

struct NormalArguments
{
    NewImageArguments image;
    double mean = 0;
    double deviation = 0;
};

/// A number that single precision can hold, from `smallest` on.
Option addReal(OptionList& list, const std::string& name, double& target, double smallest,
               const std::string& description)
{
    constexpr double largest = NumericLimits<float>::s_max;
    const auto read = [&target, smallest](const std::string& text) -> std::optional<std::string> {
        imaproc::attr::InOptEraseValue number;
        if (!number.setFromText(text) || !(number.getValue() >= smallest && number.getValue() <= largest)) {
            return formatMessage<eCommandMessage>(
                eCommandMessage::eBadOption, "a number from " + numberText(smallest) + " to " + numberText(largest),
                text, "");
        }
        target = number.getValue();
        return std::nullopt;
    };
    return list.add(name, read, description).valueName("VALUE").required();
}

void fill(const ImagePtr& image, const NormalArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const auto parameter = attr::createGaussianParameter(arguments.mean, arguments.deviation);
    runProcessor<util::GaussianRandomImgLvl1>("normal", context, processor::with<attr::InGaussianParameter>(parameter),
                                              processor::with<attr::OutImg>(image));
}

constexpr VerbRow<NormalArguments> g_row = {
    .name = "normal",
    .summary = "Make an image of random values of a normal law, as noise has it",
    .operands = [](OptionList& list, NormalArguments& arguments) { addNewImageArguments(list, arguments.image); },
    .options =
        [](OptionList& list, NormalArguments& arguments) {
            addNewImageOptions(list, arguments.image);
            addReal(
                list, "--mean", arguments.mean, -NumericLimits<float>::s_max,
                "Mean of the values, needed; integers are rounded, and those\nout of range become the nearest limit");
            addReal(list, "--deviation", arguments.deviation, 0, "Standard deviation of the values, needed");
        },
    .run =
        [](const NormalArguments& arguments, CommandContext& context) {
            makeRandomImage(arguments.image, context, [&](const ImagePtr& image) { fill(image, arguments, context); });
        }};

} // namespace

extern const Verb g_normal;
constinit const Verb g_normal = verbOf<g_row>();

} // namespace orlix::cli
