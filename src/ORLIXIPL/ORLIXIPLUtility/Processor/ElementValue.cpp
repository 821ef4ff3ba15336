#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"

#include <emmintrin.h>

namespace orlix::imaproc::util {

// The language leaves open what a conversion of a number out of range gives; the processor's instructions don't.
ElementValue toElementValue(double value)
{
    const __m128d number = _mm_set_sd(value);
    return {_mm_cvttsd_si32(number), static_cast<unsigned int>(_mm_cvttsd_si64(number)),
            _mm_cvtss_f32(_mm_cvtsd_ss(_mm_setzero_ps(), number))};
}

} // namespace orlix::imaproc::util
