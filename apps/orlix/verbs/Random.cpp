// orlix random: a new image of uniform random values, by randomImg's processor.
#include "AttributeOption.h"
#include "NewImage.h"
#include "RunProcessor.h"
#include "ValueBounds.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl1.h"

namespace orlix::cli {

namespace {

using imaproc::attr::InThresholdMax;
using imaproc::attr::InThresholdMin;

struct RandomArguments
{
    NewImageArguments image;
    ValueBounds bounds;
};

void fill(const ImagePtr& image, const RandomArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const image::eImageBufferType type = image->getBufferType();
    const auto range = attr::createRange(minOf(arguments.bounds, type), maxOf(arguments.bounds, type));
    runProcessor<util::RandomImgLvl1>("random", context, processor::with<attr::OutImg>(image),
                                      processor::with<attr::InOptOutputRange>(range));
}

constexpr VerbRow<RandomArguments> g_row = {
    .name = "random",
    .summary = "Make an image of random values, each as likely as any other",
    .operands = [](OptionList& list, RandomArguments& arguments) { addNewImageArguments(list, arguments.image); },
    .options =
        [](OptionList& list, RandomArguments& arguments) {
            addNewImageOptions(list, arguments.image);
            addAttributeOption<InThresholdMin>(list, ValueBounds::g_min, arguments.bounds.min,
                                               "Smallest value; on integers its fraction is dropped; default:\n"
                                               "the smallest of the element type")
                .valueName("VALUE");
            addAttributeOption<InThresholdMax>(list, ValueBounds::g_max, arguments.bounds.max,
                                               "Largest value; on integers its fraction is dropped; default:\n"
                                               "the largest of the element type")
                .valueName("VALUE");
        },
    .run =
        [](const RandomArguments& arguments, CommandContext& context) {
            checkOrder(arguments.bounds);
            makeRandomImage(arguments.image, context, [&](const ImagePtr& image) { fill(image, arguments, context); });
        }};

} // namespace

extern const Verb g_random;
constinit const Verb g_random = verbOf<g_row>();

} // namespace orlix::cli
