#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/RelativeLimit.h"

#include <xmmintrin.h>

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(CompareImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<CompareImgLvl3, eProcessorMessage>
    g_registration(CompareImgLvl3Kernels::g_tables);

/// The truncations are the processor's, which are defined for every value: the most negative number stands for all that
/// doesn't fit.
CompareImgLvl3::Limits limitsOf(const attr::ImgComparisonTolerance& tolerance)
{
    const __m128 absolute = _mm_set_ss(tolerance.absoluteTolerance);
    return {tolerance.mode,
            _mm_cvttss_si32(absolute),
            static_cast<unsigned int>(_mm_cvttss_si64(absolute)),
            tolerance.absoluteTolerance,
            static_cast<double>(tolerance.relativeTolerance),
            makeRelativeLimit(tolerance.relativeTolerance, 0xFF),
            makeRelativeLimit(tolerance.relativeTolerance, 0xFFFF)};
}

} // namespace

CompareImgLvl3::CompareImgLvl3() = default;
CompareImgLvl3::~CompareImgLvl3() = default;

processor::StepResult CompareImgLvl3::preProcess()
{
    const auto& tolerance = accessAttribute<attr::InImgComparisonTolerance>()->getDataItemNode();
    if (!m_bLimited || !(tolerance.getRecord() == m_limited)) { // most strips have the tolerance of the one before
        m_limits = limitsOf(tolerance);
        m_limited = tolerance.getRecord();
        m_bLimited = true;
    }
    m_result = &accessAttribute<attr::OutCompareResult>()->getDataItemNode();
    m_result->reset();
    return processor::StepResult::success();
}

bool CompareImgLvl3::isSearching() const
{
    return !m_result->hasFirstDifference();
}

void CompareImgLvl3::recordFirst(const processor::ProcessingInfo& info, unsigned long index, double value1,
                                 double value2)
{
    const image::BaseImageYStrip2d& strip = accessAttribute<attr::InYStrip2d1>()->getBaseImageYStrip2d();
    const unsigned long inLines = info.firstElement + index;
    m_result->firstDifference.x = inLines % strip.getSizeX();
    m_result->firstDifference.y = strip.getStripStartOffsetY() + info.currentLine + inLines / strip.getSizeX();
    m_result->firstValue1 = value1;
    m_result->firstValue2 = value2;
}

void CompareImgLvl3::addCounts(unsigned long nbDifferent, unsigned long nbCompared)
{
    m_result->nbDifferentPixels += nbDifferent;
    m_result->nbComparedPixels += nbCompared;
    m_result->identical = m_result->nbDifferentPixels == 0;
}

} // namespace orlix::imaproc::util
