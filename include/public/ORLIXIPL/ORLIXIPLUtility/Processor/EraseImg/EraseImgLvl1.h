// One value into a whole image: hands its plans to EraseImgLvl2.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"

namespace orlix::imaproc::util {

/// Has no rule and makes no output: the image has to be given.
class ORLIXIPLUTILITY_API EraseImgLvl1 final
    : public UtilityProcessor<EraseImgLvl1, processor::BaseAsync1Processor, attr::InOptEraseValue, attr::OutImg>
{
public:
    static constexpr const char* g_name = "EraseImgLvl1";
    static constexpr auto g_toolTip = eProcessorMessage::eEraseImgLvl1;
    static constexpr const char* g_header = __FILE__;

    processor::RulePtr createRule() const { return processor::none(); }
    /// The image has to be given.
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    StaticDispatch<EraseImgLvl2, processor::StaticNoSplit<EraseImgLvl2, attr::InOptEraseValue>,
                   SubImageSplit<EraseImgLvl2, attr::OutSubImg2d>>
        m_lower;
};

} // namespace orlix::imaproc::util
