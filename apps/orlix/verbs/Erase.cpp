// orlix erase: one value into every pixel, by eraseImg's processor.
#include "AttributeOption.h"
#include "FileVerb.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl1.h"

namespace orlix::cli {

namespace {

using imaproc::attr::InOptEraseValue;

struct EraseArguments
{
    FileArguments files;
    std::optional<GivenValue<double>> value;
};

ImagePtr erase(const ImagePtr& image, const EraseArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const double value = arguments.value ? arguments.value->value : InOptEraseValue().getValue();
    return runProcessor<util::EraseImgLvl1>("erase", context, processor::with<attr::OutImg>(image),
                                            processor::with<InOptEraseValue>(value))
        ->getStorage<attr::OutImg>();
}

constexpr VerbRow<EraseArguments> g_row = {
    .name = "erase",
    .summary = "Set every pixel of an image to one value",
    .operands = [](OptionList& list, EraseArguments& arguments) { addFileArguments(list, arguments.files); },
    .options =
        [](OptionList& list, EraseArguments& arguments) {
            addAttributeOption<InOptEraseValue>(list, "--value", arguments.value,
                                                "Value of every pixel; integers take its low bytes without its\n"
                                                "fraction, nothing saturates; default: 0")
                .valueName("VALUE");
        },
    .run =
        [](const EraseArguments& arguments, CommandContext& context) {
            transformFile(arguments.files, context, [&](const ImagePtr& in) { return erase(in, arguments, context); });
        }};

} // namespace

extern const Verb g_erase;
constinit const Verb g_erase = verbOf<g_row>();

} // namespace orlix::cli
