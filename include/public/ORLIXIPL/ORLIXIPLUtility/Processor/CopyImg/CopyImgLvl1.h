// Whole image to whole image: hands its plans to CopyImgLvl2.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CopyImgLvl1 final
    : public UtilityProcessor<CopyImgLvl1, processor::BaseAsync1Processor, attr::InImg, attr::OutImg>
{
public:
    static constexpr const char* g_name = "CopyImgLvl1";
    static constexpr auto g_toolTip = eProcessorMessage::eCopyImgLvl1;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes, same element type.
    processor::RulePtr createRule() const;
    /// A missing output is made as a duplicate of the input.
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const;

protected:
    using BaseAsync1Processor::retrieveProvider;
    /// Nothing to do where the output is the input.
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    StaticDispatch<CopyImgLvl2, SubImageSplit<CopyImgLvl2, attr::InSubImg2d>, SubImageSplit<CopyImgLvl2, attr::OutImg>>
        m_lower;
};

} // namespace orlix::imaproc::util
