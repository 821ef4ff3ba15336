// orlix threshold: a grey image into a mask, by the processor BasicThresholdImgLvl1.
#include "AttributeOption.h"
#include "FileVerb.h"
#include "RunProcessor.h"
#include "ValueBounds.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"

namespace orlix::cli {

namespace {

using imaproc::attr::InThresholdMax;
using imaproc::attr::InThresholdMin;

struct ThresholdArguments
{
    FileArguments files;
    ValueBounds bounds;
};

ImagePtr threshold(const ImagePtr& in, const ThresholdArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const image::eImageBufferType type = in->getBufferType();
    const double min = minOf(arguments.bounds, type);
    const double max = maxOf(arguments.bounds, type);
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
            addAttributeOption<InThresholdMin>(list, ValueBounds::g_min, arguments.bounds.min,
                                               "Smallest value that becomes 1; on integers its fraction is\n"
                                               "dropped; default: the smallest of the element type")
                .valueName("VALUE");
            addAttributeOption<InThresholdMax>(list, ValueBounds::g_max, arguments.bounds.max,
                                               "Largest value that becomes 1; on integers its fraction is\n"
                                               "dropped; default: the largest of the element type")
                .valueName("VALUE");
        },
    .run =
        [](const ThresholdArguments& arguments, CommandContext& context) {
            checkOrder(arguments.bounds);
            transformFile(arguments.files, context,
                          [&](const ImagePtr& in) { return threshold(in, arguments, context); });
        }};

} // namespace

extern const Verb g_threshold;
constinit const Verb g_threshold = verbOf<g_row>();

} // namespace orlix::cli
