// orlix threshold: a grey image into a mask, by the processor BasicThresholdImgLvl1.
#include "AttributeOption.h"
#include "FileVerb.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"

namespace orlix::cli {

namespace {

using imaproc::attr::InThresholdMax;
using imaproc::attr::InThresholdMin;

struct ThresholdArguments
{
    FileArguments files;
    std::optional<double> min;
    std::optional<double> max;
};

ImagePtr threshold(const ImagePtr& in, const ThresholdArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const double min = arguments.min.value_or(image::getMinValue(in->getBufferType()));
    const double max = arguments.max.value_or(image::getMaxValue(in->getBufferType()));
    return runProcessor<util::BasicThresholdImgLvl1>("threshold", context, processor::with<attr::InImg>(in),
                                                     processor::with<InThresholdMin>(min),
                                                     processor::with<InThresholdMax>(max))
        ->getStorage<attr::OutBinImg>();
}

VerbRun setUpThreshold(OptionList& options)
{
    const auto arguments = boost::make_shared<ThresholdArguments>();
    addFileArguments(options, arguments->files);
    addAttributeOption<InThresholdMin>(options, "--min", arguments->min,
                                       "Smallest value that becomes 1; on integers its fraction is\n"
                                       "dropped; default: the smallest of the element type")
        .valueName("VALUE");
    addAttributeOption<InThresholdMax>(options, "--max", arguments->max,
                                       "Largest value that becomes 1; on integers its fraction is\n"
                                       "dropped; default: the largest of the element type")
        .valueName("VALUE");
    return [arguments](CommandContext& context) {
        transformFile(arguments->files, context,
                      [&](const ImagePtr& in) { return threshold(in, *arguments, context); });
    };
}

} // namespace

extern const Verb g_threshold;
constinit const Verb g_threshold = {"threshold", "Make a binary image: 1 between two values, 0 elsewhere",
                                    &setUpThreshold};

} // namespace orlix::cli
