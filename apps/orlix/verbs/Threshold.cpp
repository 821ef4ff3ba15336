// orlix threshold: a grey image into a mask, by the processor BasicThresholdImgLvl1.
#include "AttributeOption.h"
#include "FileVerb.h"
#include "PlainText.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"

namespace orlix::cli {

namespace {

using imaproc::attr::InThresholdMax;
using imaproc::attr::InThresholdMin;

struct ThresholdArguments
{
    FileArguments files;
    std::optional<GivenValue<double>> min;
    std::optional<GivenValue<double>> max;
};

constexpr const char* g_min = "--min";
constexpr const char* g_max = "--max";

void checkOrder(const ThresholdArguments& arguments)
{
    const auto& [files, min, max] = arguments;
    if (min && max && min->value > max->value) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBoundsCross, g_min, min->text, g_max, max->text);
    }
}

/// The value of the bound, or `whole` where none was given. Throws where elements of this type can't have that value.
double boundOf(const char* option, const std::optional<GivenValue<double>>& bound, const image::eImageBufferType& type,
               double whole)
{
    const double smallest = image::getMinValue(type);
    const double largest = image::getMaxValue(type);
    if (bound && !(bound->value >= smallest && bound->value <= largest)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBeyondType, option, bound->text,
                               image::getBufferTypeName(type), shortest(smallest), shortest(largest));
    }
    return bound ? bound->value : whole;
}

ImagePtr threshold(const ImagePtr& in, const ThresholdArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const image::eImageBufferType type = in->getBufferType();
    const double min = boundOf(g_min, arguments.min, type, image::getMinValue(type));
    const double max = boundOf(g_max, arguments.max, type, image::getMaxValue(type));
    return runProcessor<util::BasicThresholdImgLvl1>("threshold", context, processor::with<attr::InImg>(in),
                                                     processor::with<InThresholdMin>(min),
                                                     processor::with<InThresholdMax>(max))
        ->getStorage<attr::OutBinImg>();
}

constexpr VerbRow<ThresholdArguments> g_row = {
    .name = "threshold",
    .summary = "Make a binary image: 1 between two values, 0 elsewhere",
    .operands = [](OptionList& list, ThresholdArguments& arguments) { addFileArguments(list, arguments.files); },
    .options =
        [](OptionList& list, ThresholdArguments& arguments) {
            addAttributeOption<InThresholdMin>(list, g_min, arguments.min,
                                               "Smallest value that becomes 1; on integers its fraction is\n"
                                               "dropped; default: the smallest of the element type")
                .valueName("VALUE");
            addAttributeOption<InThresholdMax>(list, g_max, arguments.max,
                                               "Largest value that becomes 1; on integers its fraction is\n"
                                               "dropped; default: the largest of the element type")
                .valueName("VALUE");
        },
    .run =
        [](const ThresholdArguments& arguments, CommandContext& context) {
            checkOrder(arguments);
            transformFile(arguments.files, context,
                          [&](const ImagePtr& in) { return threshold(in, arguments, context); });
        }};

} // namespace

extern const Verb g_threshold;
constinit const Verb g_threshold = verbOf<g_row>();

} // namespace orlix::cli
