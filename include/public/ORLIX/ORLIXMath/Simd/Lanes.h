// Vectors of elements for kernels that compute with the operators of the language: one text for all instruction sets.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Register.h"

namespace orlix::simd {

/// `nbLanes` elements of T. Arithmetic and comparisons go lane by lane; a comparison gives a mask of integers of the
/// same width, -1 where it holds; `mask ? a : b` selects.
template <class T, unsigned long nbLanes>
struct LanesOf
{
    typedef T Type __attribute__((vector_size(nbLanes * sizeof(T))));
};
template <class T, unsigned long nbLanes>
using Lanes = typename LanesOf<T, nbLanes>::Type;

/// From any address of elements.
template <class T, unsigned long nbLanes>
ORLIX_SIMD_INLINE Lanes<T, nbLanes> loadLanes(const T* from)
{
    Lanes<T, nbLanes> lanes;
    __builtin_memcpy(&lanes, from, sizeof(lanes));
    return lanes;
}

/// Lane by lane as a conversion of the language does; values that `TTo` can't hold are not allowed.
template <class TTo, unsigned long nbLanes, class TFrom>
ORLIX_SIMD_INLINE Lanes<TTo, nbLanes> convertLanes(const TFrom& from)
{
    return __builtin_convertvector(from, Lanes<TTo, nbLanes>);
}

} // namespace orlix::simd
