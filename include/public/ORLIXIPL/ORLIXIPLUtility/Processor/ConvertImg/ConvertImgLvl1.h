// Whole image to whole image of another element type: hands its plans to ConvertImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/BufferTypeAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateInOut.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ConvertImgLvl1 final
    : public PlanLevel<ConvertImgLvl1, UtilityLibrary, ConvertImgLvl2,
                       ByPlan<attr::InImg, attr::InSubImg2d, PlacedFor<attr::OutImg>>,
                       Kept<attr::InConvertImageBufferType>, ByPlan<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"ConvertImgLvl1", eProcessorMessage::eConvertImgLvl1};

    /// The output has the element type that InConvertImageBufferType tells; a missing one is made with it.
    using Rule = processor::AllOf<MatchSize<attr::InImg, attr::OutImg>,
                                  HasBufferType<attr::OutImg, attr::InConvertImageBufferType>>;
    using Initializers =
        processor::OutputInitializers<DuplicateInOutAs<attr::InImg, attr::OutImg, attr::InConvertImageBufferType>>;
    using NothingToDo = InSitu<attr::InImg, attr::OutImg>;

    ConvertImgLvl1();
    ~ConvertImgLvl1() override;
};

} // namespace orlix::imaproc::util
