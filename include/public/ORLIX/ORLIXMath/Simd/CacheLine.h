// One cache line of bytes under one instruction set, the unit in which bytes are moved.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Register.h"

namespace orlix::simd {

/// 64 bytes in one, two or four registers, so that every set fetches and fills whole lines. `load` and `store` take any
/// address; `stream` is `Register::stream`, to a multiple of the register's bytes.
template <eInstructionSet::domain I>
struct CacheLine
{
    static constexpr unsigned long s_nbBytes = 64;
    static constexpr unsigned long s_nbRegisters = s_nbBytes / Register<I>::s_nbBytes;
    Register<I> m_registers[s_nbRegisters];

    static ORLIX_SIMD_INLINE CacheLine load(const unsigned char* from)
    {
        CacheLine line;
        for (unsigned long r = 0; r < s_nbRegisters; ++r) {
            line.m_registers[r] = Register<I>::load(from + r * Register<I>::s_nbBytes);
        }
        return line;
    }
    ORLIX_SIMD_INLINE void store(unsigned char* to) const
    {
        for (unsigned long r = 0; r < s_nbRegisters; ++r) {
            m_registers[r].store(to + r * Register<I>::s_nbBytes);
        }
    }
    ORLIX_SIMD_INLINE void stream(unsigned char* to) const
    {
        for (unsigned long r = 0; r < s_nbRegisters; ++r) {
            m_registers[r].stream(to + r * Register<I>::s_nbBytes);
        }
    }
};

} // namespace orlix::simd
