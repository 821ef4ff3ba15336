// Two sequences to one: hands the plans that have to move to CopyImgLvl2.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImgRule.h"
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

    using Rule = AppendSeqImgRule;

    AppendSeqImgLvl1();
    ~AppendSeqImgLvl1() override;

    processor::RulePtr createRule() const { return Rule::make(accessOwnAttributes()); }
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const;

    // For calls that need no dispatch: few and small plans to another image.
    template <class TValues>
    static bool isStraight(const TValues& values)
    {
        return isSmall(processor::pointerTo(values.template get<attr::InImg1>()),
                       processor::pointerTo(values.template get<attr::InImg2>()),
                       processor::pointerTo(values.template get<attr::OutImg>()));
    }
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        return copySmall(*values.template get<attr::InImg1>(), *values.template get<attr::InImg2>(),
                         *values.template get<attr::OutImg>());
    }

protected:
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    static bool isSmall(const image::BaseImage* first, const image::BaseImage* second, const image::BaseImage* out);
    static ProcessingResult<bool> copySmall(const image::BaseImage& first, const image::BaseImage& second,
                                            image::BaseImage& out);

    /// Have the output's steps the element types of the inputs'? No rule compares them, and the level below would find
    /// out plan by plan, when others have been written.
    ProcessingResult<bool> checkTypes() const;
    ProcessingResult<bool> growFirst(ImagePtr& newSteps) const;

    StaticDispatch<CopyImgLvl2, SubImageSplit<CopyImgLvl2, attr::InSubImg2d>, SubImageSplit<CopyImgLvl2, attr::OutImg>>
        m_copy;
};

} // namespace orlix::imaproc::util
