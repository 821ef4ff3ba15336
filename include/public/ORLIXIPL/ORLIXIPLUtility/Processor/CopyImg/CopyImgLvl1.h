// Whole image to whole image: hands its plans to CopyImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateInOut.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CopyImgLvl1 final
    : public PlanLevel<CopyImgLvl1, UtilityLibrary, CopyImgLvl2,
                       ByPlan<attr::InImg, attr::InSubImg2d, PlacedFor<attr::OutImg>>, ByPlan<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"CopyImgLvl1", eProcessorMessage::eCopyImgLvl1};

    using Rule = MatchSizeAndType<attr::InImg, attr::OutImg>;
    using Initializers = processor::OutputInitializers<DuplicateInOut<attr::InImg, attr::OutImg>>;
    using NothingToDo = InSitu<attr::InImg, attr::OutImg>;

    CopyImgLvl1();
    ~CopyImgLvl1() override;
};

} // namespace orlix::imaproc::util
