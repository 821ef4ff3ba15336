// Whole image to whole image of another element type: hands its plans to ConvertImgLvl2.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/BufferTypeAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ConvertImgLvl1 final
    : public UtilityProcessor<ConvertImgLvl1, processor::BaseAsync1Processor, attr::InImg,
                              attr::InConvertImageBufferType, attr::OutImg>
{
public:
    static constexpr const char* g_name = "ConvertImgLvl1";
    static constexpr auto g_toolTip = eProcessorMessage::eConvertImgLvl1;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes; the output has the element type that InConvertImageBufferType tells.
    processor::RulePtr createRule() const;
    /// A missing output is made as a duplicate of the input, with that element type.
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const;

protected:
    using BaseAsync1Processor::retrieveProvider;
    /// Nothing to do where the output is the input.
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    StaticDispatch<ConvertImgLvl2, SubImageSplit<ConvertImgLvl2, attr::InSubImg2d>,
                   SubImageSplit<ConvertImgLvl2, attr::OutImg>>
        m_lower;
};

} // namespace orlix::imaproc::util
