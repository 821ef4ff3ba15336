// A plan copied on the calling thread, for levels that copy plans without dispatching where a strip is the whole plan.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/StraightImages.h"

namespace orlix::imaproc::util {

namespace details {

struct CopiedPlan
{
    const image::BaseImage* in;
    image::BaseImage* out;

    template <class TAttribute>
    auto get() const
    {
        if constexpr (TAttribute::g_bOutput) {
            return out;
        } else {
            return in;
        }
    }
};

} // namespace details

/// Would CopyImgLvl2 hand such plans to its level 3 whole and as they lie in memory? Of a volume, a plan of it.
inline bool isStraightCopy(const image::BaseImage& in, const image::BaseImage& out)
{
    constexpr unsigned long stripBytes = processor::ProcessorDispatchPolicy::g_defaultStripBytes;
    return in.getPixelLayout().first != nullptr && out.getPixelLayout().first != nullptr &&
           isOneStrip(in, stripBytes) && isOneStrip(out, stripBytes);
}

/// Copies a plan onto one of its sizes and element type. Only where `isStraightCopy`.
inline ProcessingResult<bool> copyStraight(const image::BaseImage& in, image::BaseImage& out)
{
    return CopyImgLvl3::runStraight(details::CopiedPlan{&in, &out});
}

} // namespace orlix::imaproc::util
