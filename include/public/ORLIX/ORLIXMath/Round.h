// Rounding to the nearest whole number.
#pragma once

namespace orlix::math {

/// floor(v + 0.5): a half goes up, also below 0. The result has to lie within the range of TOut; a NaN has none.
/// Always inlined, so that kernels may call it.
template <class TOut, class TIn>
inline __attribute__((always_inline)) TOut round(TIn v)
{
    return static_cast<TOut>(__builtin_floor(static_cast<double>(v) + 0.5));
}

} // namespace orlix::math
