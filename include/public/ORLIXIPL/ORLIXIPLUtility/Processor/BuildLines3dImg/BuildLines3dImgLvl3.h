// Lines into a strip of a volume, by a kernel chosen by instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LineSpacing.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

#include <optional>

namespace orlix::imaproc::util {

struct LatticeLine;

class ORLIXIPLUTILITY_API BuildLines3dImgLvl3 final
    : public KernelLevel<BuildLines3dImgLvl3, UtilityLibrary, TypedBy<>, Plain<attr::InTheta>, Plain<attr::InPhi>,
                         Plain<attr::InAlpha>, Plain<attr::InOffset>, ByLine<attr::OutBinZStrip3d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BuildLines3dImgLvl3", eProcessorMessage::eBuildLines3dImgLvl3};

    using Rule = processor::NoRule;

    BuildLines3dImgLvl3();
    ~BuildLines3dImgLvl3() override;

    /// From now on, what strips are of counts as a part of a volume of size `whole`: its voxel (0, 0, 0) is voxel
    /// `first` of that, whose lines are drawn.
    void drawPartOf(const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first);

    /// Draws `info.nbElements` voxels of a line, and nothing behind them, with instruction set ISA: 1 where both of a
    /// voxel's distances to the nearest line, across it, are within half a pixel, 0 elsewhere. In single precision.
    template <eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Takes sines, cosines and centre once for all sets, so that none computes them in its own way.
    processor::StepResult preProcess() override;

private:
    struct Part
    {
        attr::Img3dSizeRecord whole;
        attr::Img3dOffsetRecord first;
    };

    struct Angle
    {
        float sine;
        float cosine;
    };

    /// Of line `y` of plan `z`, both counted from the centre. Only where there is an inverse.
    LatticeLine latticeLineAt(float y, float z) const;

    std::optional<Part> m_part;
    LineSpacing m_spacing{};
    float m_inverse = 0.0F;     ///< of the spacing; 0 where voxels have to be looked at one by one
    unsigned long m_firstX = 0; ///< of the strip's voxels in the volume whose centre counts
    unsigned long m_firstY = 0;
    unsigned long m_firstZ = 0;
    unsigned long m_sizeY = 0; ///< of the strip
    float m_centreX = 0.0F;
    float m_centreY = 0.0F;
    float m_centreZ = 0.0F;
    Angle m_theta{};
    Angle m_phi{};
    Angle m_alpha{};
};

} // namespace orlix::imaproc::util
