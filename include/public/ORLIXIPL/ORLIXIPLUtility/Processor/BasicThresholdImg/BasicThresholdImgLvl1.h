// Grey image to binary image: hands its plans to BasicThresholdImgLvl2.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"

namespace orlix::imaproc::util {

/// A pixel of OutBinImg is 1 where that of InImg lies between InThresholdMin and InThresholdMax, both included, and 0
/// elsewhere. The operator has no function of its own: make the processor by its name, from processor::ProcessorFactory
/// or DynamicObjectFactory.
/// shapes   in (X, Y, Z, C, T) of any element type -> out (X, Y, Z, C, T) binary
/// bounds   grey values, as the element type of the image takes them: without their fraction for integers, so 1.5 to
///          2.9 is 1 to 2, in single precision for Real32, where no NaN lies between any two
/// errors   other sizes, an output that isn't binary, a bound outside the range of the image's type (NaN and infinities
///          always are), a lower bound above the upper one: the rule fails, the run ends, no pixel is written
/// threads  as many as core::accessExecutor() has; the input is only read
class ORLIXIPLUTILITY_API BasicThresholdImgLvl1 final
    : public UtilityProcessor<BasicThresholdImgLvl1, processor::BaseAsync1Processor, attr::InImg, attr::InThresholdMin,
                              attr::InThresholdMax, attr::OutBinImg>
{
public:
    static constexpr const char* g_name = "BasicThresholdImgLvl1";
    static constexpr auto g_toolTip = eProcessorMessage::eBasicThresholdImgLvl1;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes, the lower bound not above the upper one, both within the range of the input, a binary output.
    processor::RulePtr createRule() const;
    /// A missing output is made as a binary duplicate of the input.
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const;

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    StaticDispatch<BasicThresholdImgLvl2, SubImageSplit<BasicThresholdImgLvl2, attr::InSubImg2d>,
                   processor::StaticNoSplit<BasicThresholdImgLvl2, attr::InThresholdMin>,
                   processor::StaticNoSplit<BasicThresholdImgLvl2, attr::InThresholdMax>,
                   SubImageSplit<BasicThresholdImgLvl2, attr::OutBinImg>>
        m_lower;
};

} // namespace orlix::imaproc::util
