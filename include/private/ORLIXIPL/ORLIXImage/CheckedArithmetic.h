// Products and sums of sizes that tell when 64 bits, or the address space, do not hold them.
#pragma once

#include <limits>

namespace orlix::image {

/// A size that remembers that it once grew past what a pointer difference holds (2^63 - 1).
class CheckedSize
{
public:
    constexpr CheckedSize(unsigned long value)
        : m_value(value), m_bValid(value <= g_max) {} // NOLINT: reads as a number

    constexpr bool isValid() const { return m_bValid; }
    constexpr unsigned long getValue() const { return m_value; } ///< meaningless where not valid

    friend constexpr CheckedSize operator*(CheckedSize a, CheckedSize b)
    {
        CheckedSize result(0);
        result.m_bValid = !__builtin_mul_overflow(a.m_value, b.m_value, &result.m_value) && a.m_bValid && b.m_bValid &&
                          result.m_value <= g_max;
        return result;
    }
    friend constexpr CheckedSize operator+(CheckedSize a, CheckedSize b)
    {
        CheckedSize result(a.m_value + b.m_value); // neither is above 2^63 where it is valid
        result.m_bValid = result.m_bValid && a.m_bValid && b.m_bValid;
        return result;
    }

private:
    static constexpr unsigned long g_max = std::numeric_limits<long>::max();

    unsigned long m_value;
    bool m_bValid;
};

/// `size` rounded up to a multiple of `unit`, a power of two.
constexpr CheckedSize roundedUp(CheckedSize size, unsigned long unit)
{
    const CheckedSize sum = size + (unit - 1);
    return sum.isValid() ? CheckedSize(sum.getValue() & ~(unit - 1)) : sum;
}

} // namespace orlix::image
