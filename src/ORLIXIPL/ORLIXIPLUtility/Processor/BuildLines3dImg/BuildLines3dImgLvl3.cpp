#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl3.kernel.h"

#include <cmath>

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(BuildLines3dImgLvl3, plain, Untyped)

namespace {

const processor::ProcessorRegistration<BuildLines3dImgLvl3, eProcessorMessage>
    g_registration(BuildLines3dImgLvl3Kernels::g_tables);

/// Turned by any angle, a lattice of this spacing leaves no voxel out.
constexpr float g_denseLattice = 0.5F;

} // namespace

BuildLines3dImgLvl3::BuildLines3dImgLvl3() = default;
BuildLines3dImgLvl3::~BuildLines3dImgLvl3() = default;

void BuildLines3dImgLvl3::drawPartOf(const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first)
{
    m_part = Part{whole, first};
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
    m_centreX = static_cast<float>(part.whole.X >> 1);
    m_centreY = static_cast<float>(part.whole.Y >> 1);
    m_centreZ = static_cast<float>(part.whole.Z >> 1);
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
