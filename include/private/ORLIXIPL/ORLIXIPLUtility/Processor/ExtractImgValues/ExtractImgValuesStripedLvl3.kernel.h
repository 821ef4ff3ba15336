// Values from strips, once for all element types; included by the files of the two striped level-3 classes only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesStripedLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/Interpolation.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/WaitingPointsOrder.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

namespace orlix::imaproc::util {

// What the two kinds of strips differ in, by overload.

inline StripLines linesOf(const image::BaseImageYStrip2d& strip)
{
    return {strip.getStripStartOffsetY(), strip.getStripSizeY(), 1};
}
inline StripLines linesOf(const image::BaseImageZStrip3d& strip)
{
    return {strip.getStripStartOffsetZ(), strip.getStripSizeZ(), strip.getSizeY()};
}

inline void setMirror(BaseLineYStrip2dWithKernelParser<BaseInputYStrip2dWithKernelAttribute>& parser)
{
    parser.setBorder2dPolicy(image::mirorBorder2d());
}
inline void setMirror(BaseLineZStrip3dWithKernelParser<BaseInputZStrip3dWithKernelAttribute>& parser)
{
    parser.setBorder3dPolicy(image::mirorBorder3d());
}

inline const void* accessRun(BaseLineYStrip2dWithKernelParser<BaseInputYStrip2dWithKernelAttribute>& parser,
                             unsigned long line, unsigned long, unsigned long first, unsigned long count)
{
    return parser.accessRun(line, first, count);
}
inline const void* accessRun(BaseLineZStrip3dWithKernelParser<BaseInputZStrip3dWithKernelAttribute>& parser,
                             unsigned long line, unsigned long plan, unsigned long first, unsigned long count)
{
    return parser.accessRun(line, plan, first, count);
}

inline NumberedText blockedText(const std::array<double, 2>& place, const image::BaseImageYStrip2d& strip)
{
    return formatMessage<eProcessorMessage>(eProcessorMessage::eInvalidPoint2d, place[0], place[1], strip.getSizeX(),
                                            strip.getStripStartOffsetY(), strip.getStripSizeY());
}
inline NumberedText blockedText(const std::array<double, 3>& place, const image::BaseImageZStrip3d& strip)
{
    return formatMessage<eProcessorMessage>(eProcessorMessage::eInvalidPoint3d, place[0], place[1], place[2],
                                            strip.getSizeX(), strip.getSizeY(), strip.getStripStartOffsetZ(),
                                            strip.getStripSizeZ());
}

template <class TDerived, class TKind>
processor::StepResult ExtractImgValuesStripedLvl3<TDerived, TKind>::preProcess()
{
    const auto& strip = *this->template accessAttribute<typename TKind::InStrip>();
    m_waiting.fill(this->template accessAttribute<typename TKind::InOutPixels>()->getDataItemNode(),
                   linesOf(details::stripOf(strip)));
    setMirror(*this->template accessParser<typename TKind::InStrip>());
    return processor::StepResult::success();
}

template <class TDerived, class TKind>
processor::StepResult ExtractImgValuesStripedLvl3<TDerived, TKind>::postProcess()
{
    if (m_waiting.empty()) {
        return processor::StepResult::success();
    }
    const auto& strip = *this->template accessAttribute<typename TKind::InStrip>();
    return processor::StepResult::failed(blockedText(m_waiting.getNext().place, details::stripOf(strip)));
}

template <class TDerived, class TKind>
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool>
ExtractImgValuesStripedLvl3<TDerived, TKind>::genericProcessFunction(const processor::ProcessingInfo& info)
{
    if (!m_waiting.empty() && m_waiting.getNext().line == info.currentLine) {
        withInterpolation(this->template accessAttribute<attr::InInterpolationPolicy>()->getValue(),
                          [&](auto policy) { this->template readLine<T, decltype(policy)>(info); });
    }
    return this->succeed();
}

template <class TDerived, class TKind>
template <class T, class TInterpolation>
void ExtractImgValuesStripedLvl3<TDerived, TKind>::readLine(const processor::ProcessingInfo& info)
{
    constexpr unsigned long start = TInterpolation::s_start;
    constexpr unsigned long side = start + 1 + TInterpolation::s_end;
    constexpr unsigned long nbPlans = TKind::s_nbAxes == 3 ? side : 1;
    auto& parser = *this->template accessParser<typename TKind::InStrip>();
    const T* rows[side * nbPlans]; // of the image itself
    for (unsigned long row = 0; row < side * nbPlans; ++row) {
        rows[row] = static_cast<const T*>(accessRun(parser, row % side, row / side, start, info.nbElements));
    }
    for (; !m_waiting.empty() && m_waiting.getNext().line == info.currentLine; m_waiting.pop()) {
        const WaitingPoint<TKind>& point = m_waiting.getNext();
        const CutPlace<TKind::s_nbAxes> cut(point.place);
        const unsigned long column = cut.whole[0] - info.firstElement;
        if (column >= info.nbElements) {
            return;
        }
        if (column >= start && info.nbElements - column > TInterpolation::s_end) {
            *point.value = TInterpolation::template of<T>(
                [&rows, column](unsigned long line, unsigned long plan) {
                    return rows[plan * side + line] + (column - start);
                },
                cut.fraction);
        } else {
            *point.value = TInterpolation::template of<T>(
                [&parser, column](unsigned long line, unsigned long plan) {
                    return static_cast<const T*>(accessRun(parser, line, plan, column, side));
                },
                cut.fraction);
        }
    }
}

} // namespace orlix::imaproc::util
