#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/SequenceInitializerUtils.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SequenceRuleUtils.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc::util {

using image::SubImageExtractor;

namespace {

const processor::ProcessorRegistration<AppendSeqImgLvl1, eProcessorMessage> g_registration;

} // namespace

AppendSeqImgLvl1::AppendSeqImgLvl1() = default;
AppendSeqImgLvl1::~AppendSeqImgLvl1() = default;

processor::RulePtr AppendSeqImgLvl1::createRule() const
{
    const auto& first = accessAttribute<attr::InImg1>();
    const auto& second = accessAttribute<attr::InImg2>();
    const auto& out = accessAttribute<attr::OutImg>();
    const processor::RulePtr canGrow =
        imageBaseType(first, image::eImageBaseType::eHostImage) && imageType(first, image::eImageType::eOwnedImage);
    const processor::RulePtr holdsBoth = matchSize(first, out, eMatchImageSizeType::eAllButTime) &&
                                         matchVolumeGeometryType(first, out) && matchColorGeometryType(first, out) &&
                                         customImageProperty(out, matchAppendSeq(first, second));
    return matchSize(first, second, eMatchImageSizeType::eAllButTime) && noInSitu(second, out) &&
           matchVolumeGeometryType(first, second) && matchColorGeometryType(first, second) &&
           processor::If(isInSitu(first, out), canGrow, holdsBoth);
}

void AppendSeqImgLvl1::initOutputInitializers(processor::OutputInitializerMap& initializers) const
{
    const auto& out = accessAttribute<attr::OutImg>();
    initializers[attr::OutImg::getObjectNameStr()] =
        customOutput(out, outputAppendSeq(accessAttribute<attr::InImg1>(), accessAttribute<attr::InImg2>()));
}

ProcessingResult<bool> AppendSeqImgLvl1::growFirst(ImagePtr& newSteps) const
{
    const ImageConstPtr& first = accessAttribute<attr::InImg1>()->getStorage();
    const ImageConstPtr& second = accessAttribute<attr::InImg2>()->getStorage();
    image::BaseImage& out = accessAttribute<attr::OutImg>()->getImage();
    const unsigned long firstSizeT = first->getSizeT(); // the first image is the output, which is about to change
    const unsigned long secondSizeT = second->getSizeT();
    boost::shared_ptr<image::BaseImageGeometry> geometry;
    ProcessingResult<bool> result =
        SubImageExtractor::getGeometryResultingFromSeqConcatenation<const image::BaseImage>({first, second}, geometry);
    if (result) {
        result = out.reinitialize(*geometry);
    }
    return result ? SubImageExtractor::extractSubSequence(firstSizeT, secondSizeT, out, newSteps) : result;
}

processor::ProviderResult AppendSeqImgLvl1::retrieveProvider(const core::BasePriority& priority,
                                                             boost::shared_ptr<core::BaseActionProvider>& provider)
{
    const ImageConstPtr& first = accessAttribute<attr::InImg1>()->getStorage();
    const ImageConstPtr& second = accessAttribute<attr::InImg2>()->getStorage();
    const auto copy = [&](const ProcessingResult<bool>& arranged, const ImageConstPtr& from, const ImagePtr& to) {
        return arranged ? m_copy.dispatch(getDispatchPolicy(), priority, provider, planByPlan(from), planByPlan(to))
                        : processor::ProviderResult::failed(arranged.getMessage());
    };
    if (imaproc::isInSitu(*accessAttribute<attr::InImg1>(), *accessAttribute<attr::OutImg>())) {
        ImagePtr newSteps;
        const ProcessingResult<bool> grown = growFirst(newSteps);
        return copy(grown, second, newSteps);
    }
    ImageConstPtr both;
    const ProcessingResult<bool> joined =
        SubImageExtractor::concatenateSequences<const image::BaseImage>({first, second}, both);
    return copy(joined, both, accessAttribute<attr::OutImg>()->getStorage());
}

} // namespace orlix::imaproc::util
