#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl3.kernel.h"

#include <algorithm>
#include <cmath>

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(BuildLines3dImgLvl3, plain, Untyped)

namespace {

const processor::ProcessorRegistration<BuildLines3dImgLvl3, eProcessorMessage>
    g_registration(BuildLines3dImgLvl3Kernels::g_tables);

/// Turned by any angle, a lattice of this spacing leaves no voxel out.
constexpr float g_denseLattice = 0.5F;

// Where most voxels are told quickly to be far from any line: closer lines leave too few of them, and in larger volumes
// single precision could be wrong about them.
constexpr float g_leastSpacing = 6.0F;
constexpr float g_largestSpacing = 65536.0F;
constexpr unsigned long g_mostVoxels = 2730; ///< along each axis, 8192 along all

} // namespace

BuildLines3dImgLvl3::BuildLines3dImgLvl3() = default;
BuildLines3dImgLvl3::~BuildLines3dImgLvl3() = default;

void BuildLines3dImgLvl3::drawPartOf(const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first)
{
    m_part = Part{whole, first};
}

/// In exact numbers a voxel that is set is no further than the diagonal of half a pixel from its line, the root of 0.5.
/// In volumes for which there is an inverse, sums of single precision are wrong by less than 2^-18 of their sizes,
/// which is 1/32, and what is turned back by less than 2^-22 of the spacing, 1/64: within the root of 0.75 are all of
/// them.
LatticeLine BuildLines3dImgLvl3::latticeLineAt(float y, float z) const
{
    const float u = y * m_phi.sine * m_theta.cosine - z * m_theta.sine;
    const float v = y * m_phi.cosine;
    const float uStep = m_phi.cosine * m_theta.cosine;
    const float vStep = -m_phi.sine;
    LatticeLine line{};
    line.stepA = (vStep * m_alpha.cosine - uStep * m_alpha.sine) * m_inverse;
    line.stepB = -(uStep * m_alpha.cosine + vStep * m_alpha.sine) * m_inverse;
    line.firstA = (v * m_alpha.cosine - u * m_alpha.sine) * m_inverse - line.stepA * m_centreX;
    line.firstB = -(u * m_alpha.cosine + v * m_alpha.sine) * m_inverse - line.stepB * m_centreX;
    line.reach = 0.75F * m_inverse * m_inverse;
    return line;
}

processor::StepResult BuildLines3dImgLvl3::preProcess()
{
    const float theta = accessAttribute<attr::InTheta>()->getValue();
    const float phi = accessAttribute<attr::InPhi>()->getValue();
    const float alpha = accessAttribute<attr::InAlpha>()->getValue();
    ::sincosf(theta, &m_theta.sine, &m_theta.cosine);
    ::sincosf(phi, &m_phi.sine, &m_phi.cosine);
    ::sincosf(alpha, &m_alpha.sine, &m_alpha.cosine);
    const bool bAngles = std::isfinite(theta) && std::isfinite(phi) && std::isfinite(alpha);
    m_spacing = toLineSpacing(accessAttribute<attr::InOffset>()->getValue(), bAngles ? g_denseLattice : 0.0F);
    const image::BaseImageZStrip3d& strip = accessAttribute<attr::OutBinZStrip3d>()->accessStrip();
    const Part part = m_part ? *m_part : Part{{strip.getSizeX(), strip.getSizeY(), strip.getImageSizeZ()}, {}};
    m_sizeY = strip.getSizeY();
    m_firstX = part.first.X;
    m_firstY = part.first.Y;
    m_firstZ = part.first.Z + strip.getStripStartOffsetZ();
    const bool bPrecise = std::max(part.whole.X, part.first.X + strip.getSizeX()) <= g_mostVoxels &&
                          std::max(part.whole.Y, part.first.Y + strip.getSizeY()) <= g_mostVoxels &&
                          std::max(part.whole.Z, part.first.Z + strip.getImageSizeZ()) <= g_mostVoxels;
    const bool bSparse = m_spacing.period >= g_leastSpacing && m_spacing.period <= g_largestSpacing;
    m_inverse = bPrecise && bSparse ? 1.0F / m_spacing.period : 0.0F;
    m_centreX = static_cast<float>(part.whole.X >> 1);
    m_centreY = static_cast<float>(part.whole.Y >> 1);
    m_centreZ = static_cast<float>(part.whole.Z >> 1);
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
