// What a single archive item can hold.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>

namespace orlix {

/// The alternatives' order is that of the type names in `getArchiveTypeName`.
using ArchiveValue = std::variant<bool, std::int8_t, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t,
                                  std::uint32_t, std::int64_t, std::uint64_t, float, double, std::string>;

namespace details {

template <std::size_t size, bool bSigned>
struct SizedInteger;
template <>
struct SizedInteger<1, true>
{
    using Type = std::int8_t;
};
template <>
struct SizedInteger<1, false>
{
    using Type = std::uint8_t;
};
template <>
struct SizedInteger<2, true>
{
    using Type = std::int16_t;
};
template <>
struct SizedInteger<2, false>
{
    using Type = std::uint16_t;
};
template <>
struct SizedInteger<4, true>
{
    using Type = std::int32_t;
};
template <>
struct SizedInteger<4, false>
{
    using Type = std::uint32_t;
};
template <>
struct SizedInteger<8, true>
{
    using Type = std::int64_t;
};
template <>
struct SizedInteger<8, false>
{
    using Type = std::uint64_t;
};

template <class T>
struct ArchiveTypeOf
{
    using Type = T;
};
template <std::integral T>
struct ArchiveTypeOf<T>
{
    using Type = typename SizedInteger<sizeof(T), std::is_signed_v<T>>::Type;
};
template <>
struct ArchiveTypeOf<bool>
{
    using Type = bool;
};

} // namespace details

/// bool, every integer type, float, double and std::string.
template <class T>
concept ArchiveScalar =
    std::integral<T> || std::same_as<T, float> || std::same_as<T, double> || std::same_as<T, std::string>;

/// The alternative of ArchiveValue that stands for `T`: integers go by size and sign: `long` and `long long` are one.
template <ArchiveScalar T>
using ArchiveType = typename details::ArchiveTypeOf<T>::Type;

} // namespace orlix
