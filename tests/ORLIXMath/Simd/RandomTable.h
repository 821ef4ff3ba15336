// Random generators for every instruction set, in the form that kernels have.
#pragma once

#include "ORLIX/ORLIXMath/Simd/NormalRandom.h"
#include "ORLIX/ORLIXMath/Simd/RandomFill.h"
#include "ORLIX/ORLIXMath/Simd/UniformRandomBlocks.h"
#include "ORLIX/ORLIXMath/Simd/UniformRandomLCG.h"

namespace orlix::simd::test {

/// What a generator is to make, and where to.
struct RandomOrder
{
    const void* parameters;     ///< smallest and largest element as T, or mean and deviation as float
    const unsigned int* states; ///< null for new ones
    unsigned long nbElements;
    unsigned long nbSkipped;
    eMemoryPlace place;
    void* to;
};

using RandomFunction = void (*)(const RandomOrder& order);

struct RandomRow
{
    RandomFunction uniform;
    RandomFunction uniformBlocks;
    RandomFunction normal;
    RandomFunction uniformStates; ///< the states of a new generator, as many as there are lanes
};

/// One row per element type: signed and unsigned char, short and int, then float.
struct RandomTable
{
    RandomRow rows[7];
};
extern const RandomTable g_random_plain, g_random_sse2, g_random_avx2, g_random_avx512;

template <eInstructionSet::domain I, class T>
void fillUniform(const RandomOrder& order)
{
    const T* const bounds = static_cast<const T*>(order.parameters);
    auto generator = order.states == nullptr ? UniformRandomLCG<I, T>(bounds[0], bounds[1])
                                             : UniformRandomLCG<I, T>(bounds[0], bounds[1], order.states);
    fillRandom(generator, static_cast<T*>(order.to), order.nbElements, order.nbSkipped, order.place);
}

template <eInstructionSet::domain I, class T>
void fillByBlocks(const RandomOrder& order)
{
    const T* const bounds = static_cast<const T*>(order.parameters);
    const UniformRandomLCG<I, T> generator(bounds[0], bounds[1], order.states);
    simd::fillUniform(generator, bounds[0], bounds[1], static_cast<T*>(order.to), order.nbElements, order.nbSkipped,
                      order.place);
}

template <eInstructionSet::domain I, class T>
void fillNormal(const RandomOrder& order)
{
    const float* const law = static_cast<const float*>(order.parameters);
    auto generator = order.states == nullptr ? NormalRandom<I, I, T>(law[0], law[1])
                                             : NormalRandom<I, I, T>(law[0], law[1], order.states);
    fillRandom(generator, static_cast<T*>(order.to), order.nbElements, order.nbSkipped, order.place);
}

template <eInstructionSet::domain I, class T>
void tellStates(const RandomOrder& order)
{
    const UniformRandomLCG<I, T> generator(0, 1);
    __builtin_memcpy(order.to, &generator.state, sizeof(generator.state));
}

template <eInstructionSet::domain I, class T>
constexpr RandomRow makeRandomRow()
{
    return {&fillUniform<I, T>, &fillByBlocks<I, T>, &fillNormal<I, T>, &tellStates<I, T>};
}

template <eInstructionSet::domain I>
constexpr RandomTable makeRandomTable()
{
    return {{makeRandomRow<I, signed char>(), makeRandomRow<I, unsigned char>(), makeRandomRow<I, short>(),
             makeRandomRow<I, unsigned short>(), makeRandomRow<I, int>(), makeRandomRow<I, unsigned int>(),
             makeRandomRow<I, float>()}};
}

} // namespace orlix::simd::test
