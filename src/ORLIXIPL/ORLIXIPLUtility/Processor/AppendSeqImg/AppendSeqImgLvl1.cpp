#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/SequenceInitializerUtils.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyStraight.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/HostImages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"

#include <initializer_list>

namespace orlix::imaproc::util {

using image::SubImageExtractor;

namespace {

const processor::ProcessorRegistration<AppendSeqImgLvl1, eProcessorMessage> g_registration;

/// Are the time steps of `out` from `start` on of the types of those of `in`?
bool hasTypesOf(const image::BaseImage& out, unsigned long start, const image::BaseImage& in)
{
    for (unsigned long t = 0; t < in.getSizeT(); ++t) {
        if (out.getBufferType(start + t) != in.getBufferType(t)) {
            return false;
        }
    }
    return true;
}

/// Copies the plans of `in`, one a time step, to those of `out` from step `start` on. Only where `isSmall`.
ProcessingResult<bool> copySteps(const image::BaseImage& in, image::BaseImage& out, unsigned long start)
{
    ProcessingResult<bool> result = true;
    for (unsigned long t = 0; t < in.getSizeT() && result; ++t) {
        const image::SubImage from(in, image::planGeometry(in, t), 0, 0, t);
        image::SubImage to(out, image::planGeometry(out, start + t), 0, 0, start + t);
        result = copyStraight(from, to);
    }
    return result;
}

} // namespace

AppendSeqImgLvl1::AppendSeqImgLvl1() = default;
AppendSeqImgLvl1::~AppendSeqImgLvl1() = default;

void AppendSeqImgLvl1::initOutputInitializers(processor::OutputInitializerMap& initializers) const
{
    const auto& out = accessAttribute<attr::OutImg>();
    initializers[attr::OutImg::getObjectNameStr()] =
        customOutput(out, outputAppendSeq(accessAttribute<attr::InImg1>(), accessAttribute<attr::InImg2>()));
}

bool AppendSeqImgLvl1::isSmall(const image::BaseImage* first, const image::BaseImage* second,
                               const image::BaseImage* out)
{
    constexpr unsigned long nbSteps = 8; // where a dispatch no longer costs more than the copies
    const auto isOfPlans = [](const image::BaseImage* image) {
        return image != nullptr && image->getSizeZ() == 1 && image->getSizeC() == 1 && image->getSizeT() <= nbSteps;
    };
    return isOfPlans(first) && isOfPlans(second) && isOfPlans(out) &&
           out->getSizeT() == first->getSizeT() + second->getSizeT() && isStraightCopy(*first, *out) &&
           isStraightCopy(*second, *out) && hasTypesOf(*out, 0, *first) && hasTypesOf(*out, first->getSizeT(), *second);
}

ProcessingResult<bool> AppendSeqImgLvl1::copySmall(const image::BaseImage& first, const image::BaseImage& second,
                                                   image::BaseImage& out)
{
    ProcessingResult<bool> result = copySteps(first, out, 0);
    return result ? copySteps(second, out, first.getSizeT()) : result;
}

ProcessingResult<bool> AppendSeqImgLvl1::checkTypes() const
{
    const attr::OutImg& out = *accessAttribute<attr::OutImg>();
    unsigned long start = 0;
    for (const BaseImageAttribute* in : std::initializer_list<const BaseImageAttribute*>{
             accessAttribute<attr::InImg1>().get(), accessAttribute<attr::InImg2>().get()}) {
        if (!hasTypesOf(out.getImage(), start, in->getImage())) {
            return ProcessingResult<bool>::failure(formatMessage<eImageRuleMessage>(
                eImageRuleMessage::eTypeDiffers, out.getObjectName(), out.getImage().getGeometry().toString(),
                in->getObjectName(), in->getImage().getGeometry().toString()));
        }
        start += in->getImage().getSizeT();
    }
    return true;
}

ProcessingResult<bool> AppendSeqImgLvl1::growFirst(ImagePtr& newSteps) const
{
    const ImageConstPtr& first = accessAttribute<attr::InImg1>()->getStorage();
    const ImageConstPtr& second = accessAttribute<attr::InImg2>()->getStorage();
    image::BaseImage& out = accessAttribute<attr::OutImg>()->getImage();
    const unsigned long firstSizeT = first->getSizeT(); // the first image is the output, which is about to change
    const unsigned long secondSizeT = second->getSizeT();
    if (second->isGpuImage() && !first->isGpuImage()) { // what the copy would find when the first has grown
        return imaproc::details::refuseDeviceImage(attr::InImg2::g_name, *second);
    }
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
    ProcessingResult<bool> joined = checkTypes();
    if (joined) {
        joined = SubImageExtractor::concatenateSequences<const image::BaseImage>({first, second}, both);
    }
    return copy(joined, both, accessAttribute<attr::OutImg>()->getStorage());
}

} // namespace orlix::imaproc::util
