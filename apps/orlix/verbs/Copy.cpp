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

VerbRun setUpCopy(OptionList& options)
{
    const auto arguments = boost::make_shared<FileArguments>();
    addFileArguments(options, *arguments);
    return [arguments](CommandContext& context) {
        transformFile(*arguments, context, [&](const ImagePtr& in) { return copy(in, context); });
    };
}

} // namespace

extern const Verb g_copy;
constinit const Verb g_copy = {"copy", "Copy an image to another file, in the format that its name ends in",
                               &setUpCopy};

} // namespace orlix::cli
