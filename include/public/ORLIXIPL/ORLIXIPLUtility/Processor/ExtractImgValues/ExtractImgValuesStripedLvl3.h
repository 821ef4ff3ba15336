// The frame of the level that reads the values of the points of one strip, line by line.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/WaitingPoints.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

/// Points are put in the order in which the lines of the strip come, and each is served on its line. One that is on no
/// line of the strip, or beyond the end of its line, holds up all behind it, and the strip fails with a text about it.
template <class TDerived, class TKind>
class ExtractImgValuesStripedLvl3
    : public KernelLevel<TDerived, UtilityLibrary, TypedBy<typename TKind::InStrip>, ByLine<typename TKind::InStrip>,
                         Plain<attr::InInterpolationPolicy>, Plain<typename TKind::InOutPixels>>
{
public:
    using Kind = TKind;
    using Rule = processor::NoRule;

    void clearIntermediateData() override { m_waiting.clear(); }

    /// The points of one line.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    processor::StepResult preProcess() override;
    processor::StepResult postProcess() override;

private:
    template <class T, class TInterpolation>
    void readLine(const processor::ProcessingInfo& info);

    WaitingPoints<TKind> m_waiting;
};

} // namespace orlix::imaproc::util
