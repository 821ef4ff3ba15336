// The steps of the linear congruential generators, one at a time and many at once.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Lanes.h"

#include <utility>

namespace orlix::simd {

/// state -> state * multiplier + increment, modulo 2^32. Many steps are such a step again.
struct CongruentialStep
{
    unsigned int multiplier;
    unsigned int increment;

    constexpr unsigned int operator()(unsigned int state) const { return state * multiplier + increment; }
};

/// `first`, then `second`.
constexpr CongruentialStep operator+(const CongruentialStep& first, const CongruentialStep& second)
{
    return {first.multiplier * second.multiplier, second(first.increment)};
}

/// `nbSteps` of them; about 2 log2(nbSteps) multiplications.
constexpr CongruentialStep repeated(CongruentialStep step, unsigned long nbSteps)
{
    CongruentialStep all{1, 0};
    for (; nbSteps > 0; nbSteps /= 2) {
        all = nbSteps % 2 == 1 ? all + step : all;
        step = step + step;
    }
    return all;
}

/// The step of a lane; lanes from 8 on repeat those before. Each has the full period, 2^32. Plain code is lane 0.
constexpr CongruentialStep stepOfLane(unsigned long lane)
{
    constexpr CongruentialStep steps[8] = {{214013, 2531011},   {17405, 10395331},     {214013, 13737667},
                                           {69069, 1},          {1664525, 1013904223}, {22695477, 1},
                                           {1103515245, 12345}, {134775813, 1}};
    return steps[lane % 8];
}

/// Lanes of the generators under `I`: 4, 8 and 16 words in a register, 1 in plain code.
template <eInstructionSet::domain I>
inline constexpr unsigned long g_nbRandomLanes = Register<I>::s_nbBytes / 4;
template <>
inline constexpr unsigned long g_nbRandomLanes<eInstructionSet::eNone> = 1;

namespace details {

template <unsigned long nbSteps, unsigned long... lanes>
ORLIX_SIMD_INLINE auto multipliersOf(std::index_sequence<lanes...>)
{
    constexpr unsigned int multipliers[] = {repeated(stepOfLane(lanes), nbSteps).multiplier...};
    return Lanes<unsigned int, sizeof...(lanes)>{multipliers[lanes]...};
}
template <unsigned long nbSteps, unsigned long... lanes>
ORLIX_SIMD_INLINE auto incrementsOf(std::index_sequence<lanes...>)
{
    constexpr unsigned int increments[] = {repeated(stepOfLane(lanes), nbSteps).increment...};
    return Lanes<unsigned int, sizeof...(lanes)>{increments[lanes]...};
}

} // namespace details

/// The states of all lanes `nbSteps` steps further on, at the cost of one.
template <unsigned long nbSteps, unsigned long nbLanes>
ORLIX_SIMD_INLINE Lanes<unsigned int, nbLanes> stepLanes(const Lanes<unsigned int, nbLanes>& states)
{
    using Indices = std::make_index_sequence<nbLanes>;
    return states * details::multipliersOf<nbSteps>(Indices()) + details::incrementsOf<nbSteps>(Indices());
}

} // namespace orlix::simd
