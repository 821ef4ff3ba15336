// Two strips, line by line, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CompareImgLvl3 final
    : public KernelLevel<CompareImgLvl3, UtilityLibrary, TypedBy<attr::InYStrip2d1>, ByJoinedLines<attr::InYStrip2d1>,
                         ByJoinedLines<attr::InYStrip2d2>, Plain<attr::InImgComparisonTolerance>,
                         Plain<attr::OutCompareResult>>
{
public:
    static constexpr processor::ProcessorText g_text{"CompareImgLvl3", eProcessorMessage::eCompareImgLvl3};

    using Rule = MatchSizeAndType<attr::InYStrip2d1, attr::InYStrip2d2>;

    CompareImgLvl3();
    ~CompareImgLvl3() override;

    /// Compares the `info.nbElements` elements of a line, or of lines that touch, with instruction set ISA, and adds
    /// what it finds to the result.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

    /// A relative tolerance t for whole numbers d (difference) and m (magnitude): d / m exceeds t where d exceeds
    /// floor((high * 2^16 + low) * m / 2^32) + whole * m.
    struct RelativeLimit
    {
        unsigned short high;
        unsigned short low;
        unsigned short whole; ///< 0 or 1
        bool bNone;           ///< nothing exceeds it
        bool bAll;            ///< everything but a magnitude of 0 exceeds it
    };

    /// The tolerances as kernels of each type compare with them.
    struct Limits
    {
        unsigned int mode;
        int absoluteInt;           ///< the absolute tolerance, truncated to 32 bits
        unsigned int absoluteUInt; ///< the same, truncated to 64 bits, of which the low 32
        float absolute;
        double relative;
        RelativeLimit relativeOf8Bits;
        RelativeLimit relativeOf16Bits;
    };

protected:
    /// Sets the strip's result to its start values.
    processor::StepResult preProcess() override;

private:
    template <class TMode, class T, eInstructionSet::domain ISA>
    void compareBlock(const processor::ProcessingInfo& info);
    /// Must the kernel say where the first of its differences lies?
    bool isSearching() const;
    /// `index` counts from the first element of the block.
    void recordFirst(const processor::ProcessingInfo& info, unsigned long index, double value1, double value2);
    void addCounts(unsigned long nbDifferent, unsigned long nbCompared);

    Limits m_limits{};
    attr::ImgComparisonToleranceRecord m_limited; ///< what the limits were made of
    bool m_bLimited = false;
    attr::CompareResult* m_result = nullptr; ///< the one that the output attribute holds during a run
};

} // namespace orlix::imaproc::util
