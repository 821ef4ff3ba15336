// What devices make of elements, told by tables, and the elements that are worth trying. For nvcc as well, without any
// include of this system.
#pragma once

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>
#include <vector>

namespace orlix::testing {

/// The same bits?
template <class T>
bool isSameElement(const T& a, const T& b)
{
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

/// All values of types up to 16 bits; of the others, those around each limit that there is.
template <class T>
std::vector<T> interestingElements()
{
    std::vector<T> values;
    if constexpr (std::is_same_v<T, float>) {
        const float infinity = std::numeric_limits<float>::infinity();
        const float nan = std::numeric_limits<float>::quiet_NaN();
        for (const double limit :
             {0.0, 0.5, 1.0, 3.5, 127.0, 128.0, 255.0, 256.0, 300.7, 32767.0, 32768.0, 65535.0, 65536.0, 2147483648.0,
              4294967296.0, 1e20, 3.40282e38, static_cast<double>(FLT_MAX)}) {
            const auto value = static_cast<float>(limit);
            for (const float near : {std::nextafter(value, -infinity), value, std::nextafter(value, infinity)}) {
                values.insert(values.end(), {near, -near});
            }
        }
        values.insert(values.end(), {nan, -nan, infinity, -infinity, FLT_MIN, FLT_TRUE_MIN, 0.99F, -0.99F});
    } else if constexpr (sizeof(T) <= 2) {
        for (long value = std::numeric_limits<T>::min(); value <= std::numeric_limits<T>::max(); ++value) {
            values.push_back(static_cast<T>(value));
        }
    } else {
        for (const long limit :
             {0L, 128L, 256L, 32768L, 40000L, 65536L, 16777216L, 2147483648L, 4294934528L, 4294967168L, 4294967296L}) {
            for (long value = limit - 3; value <= limit + 3; ++value) {
                values.insert(values.end(), {static_cast<T>(value), static_cast<T>(-value)});
            }
        }
    }
    return values;
}

namespace details {

/// How an integer becomes an element of another type: limits, or a carried bit pattern, or one of two values.
struct IntegerRule
{
    enum { eCarried, eClamped, eTwoValues } kind = eCarried;
    long low = 0;
    long high = 0;
    long above = 0; ///< gives `high`, else `low`
};

constexpr IntegerRule g_carried = {};
constexpr IntegerRule clamped(long low, long high)
{
    return {IntegerRule::eClamped, low, high, 0};
}
constexpr IntegerRule twoValues(long low, long high, long above)
{
    return {IntegerRule::eTwoValues, low, high, above};
}

/// Place of a type in both tables: 8, 16 and 32 bits, signed before unsigned, last float.
template <class T>
constexpr std::size_t placeOf()
{
    if constexpr (std::is_same_v<T, float>) {
        return 6;
    } else {
        return (sizeof(T) == 1 ? 0 : sizeof(T) == 2 ? 2 : 4) + (std::is_unsigned_v<T> ? 1 : 0);
    }
}

constexpr IntegerRule g_integerRules[6][7] = {
    {g_carried, clamped(0, 127), g_carried, clamped(0, 127), g_carried, g_carried, g_carried},
    {clamped(0, 127), g_carried, g_carried, g_carried, g_carried, g_carried, g_carried},
    {clamped(-128, 127), clamped(0, 255), g_carried, clamped(0, 32767), g_carried, g_carried, g_carried},
    {clamped(0, 127), clamped(0, 255), clamped(0, 32767), g_carried, g_carried, g_carried, g_carried},
    {clamped(-128, 127), clamped(0, 255), clamped(-32768, 32767), clamped(0, 65535), g_carried, g_carried, g_carried},
    {twoValues(-128, 127, 4294967168), clamped(0, 255), twoValues(-32768, 32767, 4294934528), clamped(0, 65535),
     twoValues(-2147483648, 2147483647, 2147483648), g_carried, g_carried}};

/// At or below the first limit, above the second, else toward zero.
struct FloatRule
{
    double low;
    double lowGives;
    double high;
    double highGives;
};

constexpr FloatRule g_floatRules[6] = {{-128, -128, 127, 127},
                                       {0, 0, 255, 255},
                                       {-32768, -32768, 32767, 32767},
                                       {0, 0, 65535, 65535},
                                       {-2147483648.0, -2147483648.0, 2147483648.0, 2147483647.0},
                                       {0, 0, 4294967296.0, 4294967295.0}};

template <class TOut>
TOut convertFloat(float value)
{
    if constexpr (std::is_same_v<TOut, float>) {
        constexpr unsigned int lowBits = 0xFF7FFFEE;
        float low = 0;
        std::memcpy(&low, &lowBits, sizeof low);
        return value <= low ? low : value > FLT_MAX ? FLT_MAX : value;
    } else {
        const FloatRule& rule = g_floatRules[placeOf<TOut>()];
        if (std::isnan(value)) {
            return 0;
        }
        const double given = value <= rule.low   ? rule.lowGives
                             : value > rule.high ? rule.highGives
                                                 : std::min(std::trunc(static_cast<double>(value)), rule.highGives);
        return static_cast<TOut>(static_cast<long>(given));
    }
}

} // namespace details

/// What the converting kernel makes of an element for an output that isn't binary.
template <class TOut, class TIn>
TOut convertedOnDevice(TIn value)
{
    if constexpr (std::is_same_v<TIn, float>) {
        return details::convertFloat<TOut>(value);
    } else {
        using details::IntegerRule;
        const IntegerRule& rule = details::g_integerRules[details::placeOf<TIn>()][details::placeOf<TOut>()];
        const long wide = value;
        switch (rule.kind) {
        case IntegerRule::eClamped: return static_cast<TOut>(std::min(std::max(wide, rule.low), rule.high));
        case IntegerRule::eTwoValues: return static_cast<TOut>(wide > rule.above ? rule.high : rule.low);
        case IntegerRule::eCarried: break;
        }
        return static_cast<TOut>(wide);
    }
}

/// The same for a binary output: all but a zero, NaN too, is true.
template <class TIn>
unsigned char madeBinaryOnDevice(TIn value)
{
    return static_cast<double>(value) == 0 ? 0 : 1;
}

/// A NaN lies between no bounds.
template <class T>
unsigned char thresholdedOnDevice(T value, T min, T max)
{
    const auto wide = static_cast<double>(value);
    return wide >= static_cast<double>(min) && wide <= static_cast<double>(max) ? 1 : 0;
}

} // namespace orlix::testing
