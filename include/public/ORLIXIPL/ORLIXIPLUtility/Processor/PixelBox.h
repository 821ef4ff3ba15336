// A box of pixels on its way from one strip to another, as the rows in memory that kernels copy.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"
#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/ZStripAttributes.h"

namespace orlix::imaproc::util {

/// Where a box begins in the plans of a strip, and how large it is.
struct PixelPlace
{
    unsigned long x;
    unsigned long y;
};
struct PixelBoxSize
{
    unsigned long x;
    unsigned long y;
    unsigned long z;
};

/// A strip as rows of pixels in memory; the lines of a plan are those of a single plan. `TByte` is const for an input.
template <class TByte>
struct StripRows
{
    const BaseStripAttribute& attribute; ///< that holds the strip
    TByte* first;
    long pixelStride; ///< in elements, from a pixel of a row to the next
    long rowBytes;    ///< from a row to the next
    long planBytes;   ///< from a plan to the next
    PixelBoxSize size;
    simd::eMemoryPlace place;
};
using InputRows = StripRows<const unsigned char>;
using OutputRows = StripRows<unsigned char>;

// The strip that an attribute holds, as rows.
ORLIXIPLUTILITY_API InputRows inputRows(const BaseInputYStrip2dAttribute& attribute);
ORLIXIPLUTILITY_API InputRows inputRows(const BaseInputZStrip3dAttribute& attribute);
ORLIXIPLUTILITY_API OutputRows outputRows(const BaseOutputYStrip2dAttribute& attribute);
ORLIXIPLUTILITY_API OutputRows outputRows(const BaseOutputZStrip3dAttribute& attribute);
ORLIXIPLUTILITY_API OutputRows outputRows(const BaseInOutZStrip3dAttribute& attribute);

/// What copyBox of PixelBox.kernel.h copies: `nbPlans` times `nbRows` rows of `rowBytes`. Rows whose pixels don't lie
/// side by side, in one of the strips at least, are left to `copyStrided`.
struct PixelBox
{
    const unsigned char* source = nullptr;
    unsigned char* destination = nullptr;
    unsigned long rowBytes = 0;
    unsigned long nbRows = 0;
    unsigned long nbPlans = 0;
    long sourceRow = 0; ///< bytes from a row to the next
    long destinationRow = 0;
    long sourcePlan = 0; ///< bytes from a plan to the next
    long destinationPlan = 0;
    simd::eMemoryPlace place = simd::eMemoryPlace::secondLevelCache; ///< of the output
    long sourceStride = 1;                                           ///< elements from a pixel to the next
    long destinationStride = 1;
    unsigned long elementBytes = 1;

    /// The box of `size` at `from` of one strip, which goes to `to` of another. Fails where a strip does not hold it or
    /// the element types differ, so that no kernel leaves its strips. Rows that touch on both sides become one.
    ORLIXIPLUTILITY_API ProcessingResult<bool> init(const InputRows& source, const PixelPlace& from,
                                                    const OutputRows& destination, const PixelPlace& to,
                                                    const PixelBoxSize& size);
    /// Do pixels of a row lie apart on one side?
    ORLIX_SIMD_INLINE bool isStrided() const { return sourceStride != 1 || destinationStride != 1; }
    /// Copies the box pixel by pixel.
    ORLIXIPLUTILITY_API void copyStrided() const;
};

} // namespace orlix::imaproc::util
