// A fixed number of elements under one instruction set, the unit in which kernels work.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Lanes.h"
#include "ORLIX/ORLIXMath/Simd/Register.h"

#include <type_traits>

namespace orlix::simd {

/// True for the element types of images: signed and unsigned char, short and int, and float.
template <class T>
inline constexpr bool g_bElementType =
    std::is_same_v<T, signed char> || std::is_same_v<T, unsigned char> || std::is_same_v<T, short> ||
    std::is_same_v<T, unsigned short> || std::is_same_v<T, int> || std::is_same_v<T, unsigned int> ||
    std::is_same_v<T, float>;

/// AVX has no integer arithmetic, so its packs hold floats alone.
template <eInstructionSet::domain I, class T>
inline constexpr bool g_bHasPack = g_bElementType<T> && (I != eInstructionSet::eAVX || std::is_same_v<T, float>);

/// As many elements as a register of `I` has bytes, whatever T: 16, 32 or 64, in one, two or four registers, so that
/// packs of different types hold the same number. `load` and `store` take any address of elements; `stream` is
/// `Register::stream`, to a multiple of the register's bytes.
template <eInstructionSet::domain I, class T>
requires g_bHasPack<I, T>
struct Pack
{
    static constexpr unsigned long s_nbElements = Register<I>::s_nbBytes;
    static constexpr unsigned long s_nbRegisters = sizeof(T);
    static constexpr unsigned long s_nbPerRegister = s_nbElements / s_nbRegisters;
    Register<I> m_registers[s_nbRegisters];

    static ORLIX_SIMD_INLINE Pack load(const T* from)
    {
        Pack pack;
        for (unsigned long r = 0; r < s_nbRegisters; ++r) {
            pack.m_registers[r] = Register<I>::load(from + r * s_nbPerRegister);
        }
        return pack;
    }
    /// The same value in every element, bit for bit.
    static ORLIX_SIMD_INLINE Pack broadcast(T value)
    {
        using Bits = std::conditional_t<sizeof(T) == 1, unsigned char,
                                        std::conditional_t<sizeof(T) == 2, unsigned short, unsigned int>>;
        Bits bits;
        __builtin_memcpy(&bits, &value, sizeof(T));
        const Lanes<Bits, s_nbPerRegister> lanes = Lanes<Bits, s_nbPerRegister>{} + bits;
        Pack pack;
        for (unsigned long r = 0; r < s_nbRegisters; ++r) {
            pack.m_registers[r] = Register<I>::load(&lanes);
        }
        return pack;
    }
    ORLIX_SIMD_INLINE void store(T* to) const
    {
        for (unsigned long r = 0; r < s_nbRegisters; ++r) {
            m_registers[r].store(to + r * s_nbPerRegister);
        }
    }
    ORLIX_SIMD_INLINE void stream(T* to) const
    {
        for (unsigned long r = 0; r < s_nbRegisters; ++r) {
            m_registers[r].stream(to + r * s_nbPerRegister);
        }
    }
};

/// Plain code works element by element; `stream` is an ordinary store.
template <class T>
requires g_bElementType<T>
struct Pack<eInstructionSet::eNone, T>
{
    static constexpr unsigned long s_nbElements = 1;
    T m_value;

    static ORLIX_SIMD_INLINE Pack load(const T* from) { return {*from}; }
    static ORLIX_SIMD_INLINE Pack broadcast(T value) { return {value}; }
    ORLIX_SIMD_INLINE void store(T* to) const { *to = m_value; }
    ORLIX_SIMD_INLINE void stream(T* to) const { *to = m_value; }
};

} // namespace orlix::simd
