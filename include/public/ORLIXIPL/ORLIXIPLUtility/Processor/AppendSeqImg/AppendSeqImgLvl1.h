// Two sequences to one: hands the plans that have to move to CopyImgLvl2.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

namespace orlix::imaproc::util {

/// Where the output is the first sequence, it grows in place and only the second one's plans are copied. It has grown
/// when the copy begins, and stays so if that fails or is cancelled.
class ORLIXIPLUTILITY_API AppendSeqImgLvl1 final
    : public processor::Scaffold<AppendSeqImgLvl1, processor::BaseAsync1Processor, UtilityLibrary, attr::InImg1,
                                 attr::InImg2, attr::OutImg>
{
public:
    static constexpr processor::ProcessorText g_text{"AppendSeqImgLvl1", eProcessorMessage::eAppendSeqImgLvl1};

    AppendSeqImgLvl1();
    ~AppendSeqImgLvl1() override;

    processor::RulePtr createRule() const;
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const;

protected:
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    ProcessingResult<bool> growFirst(ImagePtr& newSteps) const;

    StaticDispatch<CopyImgLvl2, SubImageSplit<CopyImgLvl2, attr::InSubImg2d>, SubImageSplit<CopyImgLvl2, attr::OutImg>>
        m_copy;
};

} // namespace orlix::imaproc::util
