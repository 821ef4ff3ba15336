// orlix copy: an image into another file, by copyImg's processor.
#include "FileVerb.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"

namespace orlix::cli {

namespace {

ImagePtr copy(const ImagePtr& in, CommandContext& context)
{
    using namespace imaproc;
    return runProcessor<util::CopyImgLvl1>("copy", context, processor::with<attr::InImg>(in))
        ->getStorage<attr::OutImg>();
}

constexpr VerbRow<FileArguments> g_row = {
    .name = "copy",
    .summary = "Copy an image to another file, in the format that its name ends in",
    .operands = &addFileArguments,
    .run = [](const FileArguments& arguments, CommandContext& context) {
        transformFile(arguments, context, [&](const ImagePtr& in) { return copy(in, context); });
    }};

} // namespace

extern const Verb g_copy;
constinit const Verb g_copy = verbOf<g_row>();

} // namespace orlix::cli
