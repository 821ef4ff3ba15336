// orlix convert: an image into one of another element type, by convertImg's processor.
#include "AttributeOption.h"
#include "FileVerb.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl1.h"

namespace orlix::cli {

namespace {

using imaproc::attr::InConvertImageBufferType;

struct ConvertArguments
{
    FileArguments files;
    std::optional<GivenValue<image::eImageBufferType>> type;
};

ImagePtr convert(const ImagePtr& in, const image::eImageBufferType& type, CommandContext& context)
{
    using namespace imaproc;
    return runProcessor<util::ConvertImgLvl1>("convert", context, processor::with<attr::InImg>(in),
                                              processor::with<InConvertImageBufferType>(type))
        ->getStorage<attr::OutImg>();
}

constexpr VerbRow<ConvertArguments> g_row = {
    .name = "convert",
    .summary = "Change the element type of an image",
    .operands = [](OptionList& list, ConvertArguments& arguments) { addFileArguments(list, arguments.files); },
    .options =
        [](OptionList& list, ConvertArguments& arguments) {
            addAttributeOption<InConvertImageBufferType>(
                list, "--type", arguments.type,
                "Element type of the output, needed: Int8, UInt8, Int16, UInt16, Int32,\n"
                "UInt32, Real32, Binary, UInt8Like, UInt16Like or UInt32Like;\n"
                "float32 and bool for Real32 and Binary. Upper or lower case.\n"
                "Values are converted as they stand, nothing is scaled")
                .valueName("TYPE")
                .required();
        },
    .run =
        [](const ConvertArguments& arguments, CommandContext& context) {
            transformFile(arguments.files, context,
                          [&](const ImagePtr& in) { return convert(in, arguments.type->value, context); });
        }};

} // namespace

extern const Verb g_convert;
constinit const Verb g_convert = verbOf<g_row>();

} // namespace orlix::cli
