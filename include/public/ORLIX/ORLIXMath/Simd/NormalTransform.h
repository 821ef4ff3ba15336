// From uniform to normal numbers: the transform of Box and Muller, in single precision, lane by lane.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Lanes.h"

namespace orlix::simd {

namespace details {

/// a[0] x^(n-1) + … + a[n-1], by Horner's rule.
template <class TReals, unsigned long nb>
ORLIX_SIMD_INLINE TReals polynomial(const TReals& x, const float (&coefficients)[nb])
{
    TReals sum = TReals{} + coefficients[0];
    for (unsigned long i = 1; i < nb; ++i) {
        sum = sum * x + coefficients[i];
    }
    return sum;
}

} // namespace details

/// The natural logarithm of positive normal numbers, as the Cephes library's `logf` has it (S. L. Moshier). Uniform
/// numbers are 2^-33 or more, so nothing is asked about others.
template <unsigned long nbLanes>
ORLIX_SIMD_INLINE Lanes<float, nbLanes> logarithm(const Lanes<float, nbLanes>& x)
{
    using Reals = Lanes<float, nbLanes>;
    using Words = Lanes<int, nbLanes>;
    const Words bits = __builtin_bit_cast(Words, x);
    const Reals mantissa = __builtin_bit_cast(Reals, (bits & 0x007FFFFF) | 0x3F000000);
    const Reals exponent = convertLanes<float, nbLanes>((bits >> 23) - 126);
    const auto bLow = mantissa < 0.70710677F;
    const Reals e = bLow ? exponent - 1.0F : exponent;
    const Reals less = mantissa - 1.0F;
    const Reals t = bLow ? mantissa + less : less;
    const Reals z = t * t;
    const Reals sum = details::polynomial(t, {0.070376836F, -0.1151461F, 0.116769984F, -0.12420141F, 0.14249323F,
                                              -0.16668057F, 0.20000714F, -0.24999994F, 0.3333333F});
    return sum * t * z - e * 0.00021219444F - z * 0.5F + t + e * 0.6933594F;
}

template <unsigned long nbLanes>
struct SineAndCosine
{
    Lanes<float, nbLanes> sine;
    Lanes<float, nbLanes> cosine;
};

/// Of an angle from 0 to a few turns, as the Cephes library's `sinf` and `cosf` have them, from one reduction.
template <unsigned long nbLanes>
ORLIX_SIMD_INLINE SineAndCosine<nbLanes> sineAndCosine(const Lanes<float, nbLanes>& x)
{
    using Reals = Lanes<float, nbLanes>;
    using Words = Lanes<int, nbLanes>;
    const Words octant = (convertLanes<int, nbLanes>(x * 1.2732395F) + 1) & ~1;
    const Reals y = convertLanes<float, nbLanes>(octant);
    Reals a = x + y * -0.78515625F;
    a = a + y * -0.00024187565F;
    a = a + y * -3.774895e-8F;
    const Reals z = a * a;
    const Reals one = Reals{} + 1.0F;
    const Reals sine = details::polynomial(z, {-0.00019515296F, 0.008332161F, -0.16666655F}) * z * a + a;
    const Reals cosine = details::polynomial(z, {2.4433157e-5F, -0.0013887316F, 0.041666646F}) * z * z - z * 0.5F + one;
    const auto bExchanged = (octant & 2) != 0;
    const Words sineSign = (octant & 4) << 29;
    const Words cosineSign = (~(octant - 2) & 4) << 29;
    const Words ofSine = __builtin_bit_cast(Words, Reals(bExchanged ? cosine : sine));
    const Words ofCosine = __builtin_bit_cast(Words, Reals(bExchanged ? sine : cosine));
    return {__builtin_bit_cast(Reals, ofSine ^ sineSign), __builtin_bit_cast(Reals, ofCosine ^ cosineSign)};
}

} // namespace orlix::simd
