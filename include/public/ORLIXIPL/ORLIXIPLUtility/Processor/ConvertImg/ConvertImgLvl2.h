// Plan to plan of another element type: hands its strips to ConvertImgLvl3.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ConvertImgLvl2 final
    : public UtilityProcessor<ConvertImgLvl2, processor::BaseAsync1Processor, attr::InSubImg2d, attr::OutImg>
{
public:
    static constexpr const char* g_name = "ConvertImgLvl2";
    static constexpr auto g_toolTip = eProcessorMessage::eConvertImgLvl2;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes.
    processor::RulePtr createRule() const;
    /// Level 1 gives the output.
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    DynamicDispatch<ConvertImgLvl3, ImageYStrip2dSplit<ConvertImgLvl3, const image::BaseImage, attr::InYStrip2d>,
                    ImageYStrip2dSplit<ConvertImgLvl3, image::BaseImage, attr::OutYStrip2d>>
        m_lower;
};

} // namespace orlix::imaproc::util
