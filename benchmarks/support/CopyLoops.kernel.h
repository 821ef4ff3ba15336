// The copy loops over a kind of register; included by the files CopyLoops_<set> only.
#pragma once

#include "support/CopyLoops.h"

#include <immintrin.h>

namespace orlix::bench {
namespace {

constexpr std::size_t g_lineBytes = 64;

/// Copies one cache line after another and has the line `ahead` bytes further on fetched meanwhile, none where 0.
template <class TRegister, bool bStreaming, std::size_t ahead>
inline void copyLines(const std::byte* source, std::byte* destination, std::size_t bytes)
{
    constexpr std::size_t width = sizeof(typename TRegister::Type);
    for (std::size_t line = 0; line < bytes; line += g_lineBytes) {
        if constexpr (ahead > 0) {
            _mm_prefetch(reinterpret_cast<const char*>(source + line + ahead), _MM_HINT_T0);
        }
        for (std::size_t i = line; i < line + g_lineBytes; i += width) {
            if constexpr (bStreaming) {
                TRegister::stream(destination + i, TRegister::load(source + i));
            } else {
                TRegister::store(destination + i, TRegister::load(source + i));
            }
        }
    }
}

template <class TRegister, std::size_t ahead>
void copyOrdinary(const std::byte* source, std::byte* destination, std::size_t bytes)
{
    copyLines<TRegister, false, ahead>(source, destination, bytes);
}

/// Loads of four lines before their stores: faster in L1 and L2, slower on some processors where memory is the limit.
template <class TRegister>
void copyOrdinaryBlocks(const std::byte* source, std::byte* destination, std::size_t bytes)
{
    constexpr std::size_t width = sizeof(typename TRegister::Type);
    constexpr std::size_t count = 4 * g_lineBytes / width;
    for (std::size_t block = 0; block < bytes; block += count * width) {
        typename TRegister::Type values[count];
#pragma GCC unroll 16
        for (std::size_t i = 0; i < count; ++i) {
            values[i] = TRegister::load(source + block + i * width);
        }
#pragma GCC unroll 16
        for (std::size_t i = 0; i < count; ++i) {
            TRegister::store(destination + block + i * width, values[i]);
        }
    }
}

template <class TRegister>
void copyStreaming(const std::byte* source, std::byte* destination, std::size_t bytes)
{
    copyLines<TRegister, true, 0>(source, destination, bytes);
    _mm_sfence();
}

template <class TRegister>
void copyStreamingGroups(const std::byte* source, std::byte* destination, std::size_t bytes)
{
    constexpr std::size_t turn = 4 * g_lineBytes;
    const std::size_t quarter = bytes / 4;
    for (std::size_t i = 0; i < quarter; i += turn) {
        for (std::size_t group = i; group < bytes; group += quarter) {
            copyLines<TRegister, true, 512>(source + group, destination + group, turn);
        }
    }
    _mm_sfence();
}

template <class TRegister>
constexpr CopyLoops makeCopyLoops(eInstructionSet::domain set)
{
    return {set,
            &copyOrdinary<TRegister, 0>,
            &copyOrdinaryBlocks<TRegister>,
            &copyOrdinary<TRegister, 1024>,
            &copyStreaming<TRegister>,
            &copyStreamingGroups<TRegister>};
}

} // namespace
} // namespace orlix::bench
