// One vector register of an instruction set, as raw bytes.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"
#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <immintrin.h>

namespace orlix::simd {

/// Has the cache line at `address`, which need not be anybody's, fetched meanwhile.
ORLIX_SIMD_INLINE void prefetch(const void* address)
{
    _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
}

/// The widest register that `I` moves: `s_nbBytes` bytes, moved as they are. `load` and `store` take any address.
/// `stream` stores past the caches to a multiple of `s_nbBytes`; `streamFence` has to follow before another thread may
/// read. `isAnySet` tells whether any bit is 1; `multiplyHigh` gives the upper halves of the products of unsigned
/// 16-bit numbers; AVX, which has no integers, lacks both. Defined only in files that are compiled for `I`; plain code
/// has no registers.
template <eInstructionSet::domain I>
struct Register;

template <>
struct Register<eInstructionSet::eSSE2>
{
    static constexpr unsigned long s_nbBytes = 16;
    __m128i m_bits;

    static ORLIX_SIMD_INLINE Register load(const void* from)
    {
        return {_mm_loadu_si128(static_cast<const __m128i*>(from))};
    }
    ORLIX_SIMD_INLINE void store(void* to) const { _mm_storeu_si128(static_cast<__m128i*>(to), m_bits); }
    ORLIX_SIMD_INLINE void stream(void* to) const { _mm_stream_si128(static_cast<__m128i*>(to), m_bits); }
    ORLIX_SIMD_INLINE bool isAnySet() const
    {
        return _mm_movemask_epi8(_mm_cmpeq_epi8(m_bits, _mm_setzero_si128())) != 0xFFFF;
    }
    static ORLIX_SIMD_INLINE Register multiplyHigh(const Register& a, const Register& b)
    {
        return {_mm_mulhi_epu16(a.m_bits, b.m_bits)};
    }
};

#ifdef __AVX__
template <>
struct Register<eInstructionSet::eAVX>
{
    static constexpr unsigned long s_nbBytes = 32;
    __m256 m_bits; // AVX computes with floats alone

    static ORLIX_SIMD_INLINE Register load(const void* from)
    {
        return {_mm256_loadu_ps(static_cast<const float*>(from))};
    }
    ORLIX_SIMD_INLINE void store(void* to) const { _mm256_storeu_ps(static_cast<float*>(to), m_bits); }
    ORLIX_SIMD_INLINE void stream(void* to) const { _mm256_stream_ps(static_cast<float*>(to), m_bits); }
};
#endif

#ifdef __AVX2__
template <>
struct Register<eInstructionSet::eAVX2>
{
    static constexpr unsigned long s_nbBytes = 32;
    __m256i m_bits;

    static ORLIX_SIMD_INLINE Register load(const void* from)
    {
        return {_mm256_loadu_si256(static_cast<const __m256i*>(from))};
    }
    ORLIX_SIMD_INLINE void store(void* to) const { _mm256_storeu_si256(static_cast<__m256i*>(to), m_bits); }
    ORLIX_SIMD_INLINE void stream(void* to) const { _mm256_stream_si256(static_cast<__m256i*>(to), m_bits); }
    ORLIX_SIMD_INLINE bool isAnySet() const { return _mm256_testz_si256(m_bits, m_bits) == 0; }
    static ORLIX_SIMD_INLINE Register multiplyHigh(const Register& a, const Register& b)
    {
        return {_mm256_mulhi_epu16(a.m_bits, b.m_bits)};
    }
};
#endif

#if defined __AVX512F__ && defined __AVX512BW__ && defined __AVX512DQ__ && defined __AVX512VL__
template <>
struct Register<eInstructionSet::eAVX512>
{
    static constexpr unsigned long s_nbBytes = 64;
    __m512i m_bits;

    static ORLIX_SIMD_INLINE Register load(const void* from) { return {_mm512_loadu_si512(from)}; }
    ORLIX_SIMD_INLINE void store(void* to) const { _mm512_storeu_si512(to, m_bits); }
    ORLIX_SIMD_INLINE void stream(void* to) const { _mm512_stream_si512(static_cast<__m512i*>(to), m_bits); }
    ORLIX_SIMD_INLINE bool isAnySet() const { return _mm512_test_epi64_mask(m_bits, m_bits) != 0; }
    static ORLIX_SIMD_INLINE Register multiplyHigh(const Register& a, const Register& b)
    {
        return {_mm512_mulhi_epu16(a.m_bits, b.m_bits)};
    }
};
#endif

} // namespace orlix::simd
