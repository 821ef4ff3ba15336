// Numbers out of the bytes of a fuzz input.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace orlix::fuzz {

/// Takes its bytes from the front; behind the last all are 0. The bytes must outlive it.
class ByteReader
{
public:
    ByteReader(const unsigned char* bytes, std::size_t size) : m_next(bytes), m_nbLeft(size) {}

    unsigned char byte() { return m_nbLeft == 0 ? 0 : (--m_nbLeft, *m_next++); }
    /// From 0 to `count` - 1; `count` is 1 to 256.
    unsigned long below(unsigned long count) { return byte() % count; }
    bool flag() { return below(2) != 0; }
    /// Any bits of a float or double.
    template <class T>
    T bits()
    {
        T value = 0;
        const std::size_t nbBytes = std::min(sizeof(T), m_nbLeft);
        std::memcpy(&value, m_next, nbBytes);
        m_next += nbBytes;
        m_nbLeft -= nbBytes;
        return value;
    }
    /// A number that operators see often: whole, halved, at the edges of types; or any bits.
    double number()
    {
        const unsigned long kind = below(8);
        const double whole = static_cast<double>(static_cast<signed char>(byte()));
        switch (kind) {
        case 0: return bits<double>();
        case 1: return static_cast<double>(bits<float>());
        case 2: return whole / 2;
        case 3: return static_cast<double>(1UL << below(63)) + whole / 2;
        case 4: return -static_cast<double>(1UL << below(63)) + whole / 2;
        case 5: return whole * 256;
        default: return whole;
        }
    }

private:
    const unsigned char* m_next;
    std::size_t m_nbLeft;
};

} // namespace orlix::fuzz
