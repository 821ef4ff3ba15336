#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl3.kernel.h"

#include <algorithm>
#include <cmath>

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(BuildLines2dImgLvl3, plain, Untyped)

namespace {

const processor::ProcessorRegistration<BuildLines2dImgLvl3, eProcessorMessage>
    g_registration(BuildLines2dImgLvl3Kernels::g_tables);

} // namespace

BuildLines2dImgLvl3::BuildLines2dImgLvl3() = default;
BuildLines2dImgLvl3::~BuildLines2dImgLvl3() = default;

void BuildLines2dImgLvl3::drawPartOf(const attr::Img2dSizeRecord& whole, const attr::Img2dOffsetRecord& first)
{
    m_part = Part{whole, first};
}

processor::StepResult BuildLines2dImgLvl3::preProcess()
{
    const float theta = accessAttribute<attr::InTheta>()->getValue();
    ::sincosf(theta, &m_sine, &m_cosine);
    m_spacing = toLineSpacing(std::isfinite(theta) ? accessAttribute<attr::InOffset>()->getValue() : 0.0, 1.0F);
    const image::BaseImageYStrip2d& strip = accessAttribute<attr::OutBinYStrip2d>()->accessStrip();
    const Part part = m_part ? *m_part : Part{{strip.getSizeX(), strip.getImageSizeY()}, {}};
    m_firstX = part.first.X;
    m_firstY = part.first.Y + strip.getStripStartOffsetY();
    m_inverse = inversePeriod(m_spacing, std::max(part.whole.X, part.whole.Y));
    const float width = static_cast<float>(part.whole.X);
    const float height = static_cast<float>(part.whole.Y);
    m_centre = height * 0.5F * m_cosine - width * 0.5F * m_sine;
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
