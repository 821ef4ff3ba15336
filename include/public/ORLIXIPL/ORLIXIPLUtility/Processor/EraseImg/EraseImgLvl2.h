// One value into a plan: hands its strips to EraseImgLvl3.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API EraseImgLvl2 final
    : public UtilityProcessor<EraseImgLvl2, processor::BaseAsync1Processor, attr::InOptEraseValue, attr::OutSubImg2d>
{
public:
    static constexpr const char* g_name = "EraseImgLvl2";
    static constexpr auto g_toolTip = eProcessorMessage::eEraseImgLvl2;
    static constexpr const char* g_header = __FILE__;

    processor::RulePtr createRule() const { return processor::none(); }
    /// Level 1 gives the image.
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    DynamicDispatch<EraseImgLvl3, processor::DynamicNoSplit<EraseImgLvl3, attr::InOptEraseValue>,
                    ImageYStrip2dSplit<EraseImgLvl3, image::BaseImage, attr::OutYStrip2d>>
        m_lower;
};

} // namespace orlix::imaproc::util
