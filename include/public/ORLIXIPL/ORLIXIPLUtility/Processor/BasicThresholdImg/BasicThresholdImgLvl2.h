// Grey plan to binary plan: hands its strips to BasicThresholdImgLvl3.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BasicThresholdImgLvl2 final
    : public UtilityProcessor<BasicThresholdImgLvl2, processor::BaseAsync1Processor, attr::InSubImg2d,
                              attr::InThresholdMin, attr::InThresholdMax, attr::OutBinImg>
{
public:
    static constexpr const char* g_name = "BasicThresholdImgLvl2";
    static constexpr auto g_toolTip = eProcessorMessage::eBasicThresholdImgLvl2;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes, the lower bound not above the upper one, both within the range of the input, a binary output.
    processor::RulePtr createRule() const;
    /// Level 1 gives the output.
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    DynamicDispatch<BasicThresholdImgLvl3,
                    ImageYStrip2dSplit<BasicThresholdImgLvl3, const image::BaseImage, attr::InYStrip2d>,
                    processor::DynamicNoSplit<BasicThresholdImgLvl3, attr::InThresholdMin>,
                    processor::DynamicNoSplit<BasicThresholdImgLvl3, attr::InThresholdMax>,
                    ImageYStrip2dSplit<BasicThresholdImgLvl3, image::BaseImage, attr::OutBinYStrip2d>>
        m_lower;
};

} // namespace orlix::imaproc::util
