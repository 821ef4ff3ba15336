// The oracle of the conversions itself, on values that are written out by hand.
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgOracle.h"

#include <gtest/gtest.h>

#include <limits>

namespace orlix::testing {
namespace {

using image::eImageBufferType;

constexpr Set g_plain = eInstructionSet::eNone;
constexpr Set g_sse2 = eInstructionSet::eSSE2;
constexpr Set g_avx2 = eInstructionSet::eAVX2;
constexpr Set g_avx512 = eInstructionSet::eAVX512;

/// The result as bits; `value` is of the type `from` stands for.
template <class T>
std::uint32_t convert(Set set, BufferType from, T value, BufferType to)
{
    std::uint32_t bits = 0;
    static_assert(sizeof(T) <= sizeof(bits));
    __builtin_memcpy(&bits, &value, sizeof(T));
    return convertedBits(set, from, readElement(from, bits), to);
}

struct Row
{
    double value;
    std::uint32_t plain;
    std::uint32_t sse2;
    std::uint32_t avx2;
    std::uint32_t avx512;
};

template <class T>
void expectRows(BufferType from, BufferType to, const std::vector<Row>& rows)
{
    for (const Row& row : rows) {
        const T value = static_cast<T>(row.value);
        EXPECT_EQ(convert(g_plain, from, value, to), row.plain) << row.value;
        EXPECT_EQ(convert(g_sse2, from, value, to), row.sse2) << row.value;
        EXPECT_EQ(convert(g_avx2, from, value, to), row.avx2) << row.value;
        EXPECT_EQ(convert(g_avx512, from, value, to), row.avx512) << row.value;
    }
}

TEST(ConvertImgOracle, Int32ToUInt8)
{
    expectRows<std::int32_t>(eImageBufferType::Int32, eImageBufferType::UInt8,
                             {{5, 5, 5, 5, 5},
                              {300, 44, 255, 255, 255},
                              {-1, 255, 0, 0, 0},
                              {32767, 255, 255, 255, 255},
                              {40000, 64, 0, 0, 0},
                              {70000, 112, 255, 0, 0}});
}

TEST(ConvertImgOracle, Int32ToUInt16)
{
    expectRows<std::int32_t>(
        eImageBufferType::Int32, eImageBufferType::UInt16,
        {{40000, 40000, 40000, 40000, 40000}, {70000, 4464, 4464, 65535, 65535}, {-1, 65535, 65535, 0, 0}});
}

TEST(ConvertImgOracle, NarrowToSigned)
{
    expectRows<std::uint32_t>(eImageBufferType::UInt32, eImageBufferType::Int16,
                              {{70000, 4464, 32767, 32767, 32767},
                               {4294967295.0, 65535, 65535, 65535, 65535},
                               {2147483648.0, 0, 0x8000, 0x8000, 0x8000}});
    expectRows<std::uint16_t>(eImageBufferType::UInt16, eImageBufferType::Int8,
                              {{200, 200, 127, 127, 127}, {40000, 64, 128, 128, 128}});
    expectRows<std::uint16_t>(eImageBufferType::UInt16, eImageBufferType::UInt8,
                              {{200, 200, 200, 200, 200}, {300, 44, 255, 255, 255}, {40000, 64, 0, 0, 0}});
}

TEST(ConvertImgOracle, WidenAndSameWidth)
{
    EXPECT_EQ(convert<std::int8_t>(g_sse2, eImageBufferType::Int8, -1, eImageBufferType::UInt16), 65535U);
    EXPECT_EQ(convert<std::int8_t>(g_sse2, eImageBufferType::Int8, -1, eImageBufferType::UInt32), 4294967295U);
    EXPECT_EQ(convert<std::uint8_t>(g_sse2, eImageBufferType::UInt8, 255, eImageBufferType::Int32), 255U);
    EXPECT_EQ(convert<std::int16_t>(g_avx2, eImageBufferType::Int16, -1, eImageBufferType::UInt16), 65535U);
    EXPECT_EQ(convert<std::uint32_t>(g_plain, eImageBufferType::UInt32, 0xFFFFFFFF, eImageBufferType::Int32),
              0xFFFFFFFFU);
}

TEST(ConvertImgOracle, Real32ToIntegers)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::uint32_t least = 0x80000000;
    expectRows<float>(eImageBufferType::Real32, eImageBufferType::Int32,
                      {{1.9, 1, 1, 1, 1},
                       {-1.9, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF},
                       {3e9, least, least, least, least},
                       {nan, least, least, least, least}});
    const std::uint32_t most = 0xFFFFFFFF;
    expectRows<float>(eImageBufferType::Real32, eImageBufferType::UInt32,
                      {{3e9, 3000000000, 3000000000, 3000000000, 3000000000},
                       {-0.5, 0, 0, 0, 0},
                       {-1, most, 0, 0, most},
                       {4294967296.0, 0, 0, 0, most},
                       {8589934592.0 + 1024, 1024, 0, 0, most},
                       {1e30, 0, 0, 0, most},
                       {nan, 0, 0, 0, most}});
    expectRows<float>(eImageBufferType::Real32, eImageBufferType::UInt8,
                      {{300.5, 44, 255, 255, 255}, {-1.5, 255, 0, 0, 0}, {40000, 64, 0, 0, 0}, {1e10, 0, 0, 0, 0}});
    expectRows<float>(eImageBufferType::Real32, eImageBufferType::Int16, {{1e10, 0, 0x8000, 0x8000, 0x8000}});
}

TEST(ConvertImgOracle, Real32)
{
    EXPECT_EQ(convert<std::int32_t>(g_plain, eImageBufferType::Int32, 16777217, eImageBufferType::Real32),
              std::bit_cast<std::uint32_t>(16777216.0F));
    EXPECT_EQ(convert<std::int32_t>(g_plain, eImageBufferType::Int32, 16777219, eImageBufferType::Real32),
              std::bit_cast<std::uint32_t>(16777220.0F));
    EXPECT_EQ(convert<std::uint32_t>(g_sse2, eImageBufferType::UInt32, 0xFFFFFFFF, eImageBufferType::Real32),
              std::bit_cast<std::uint32_t>(4294967296.0F));
    const std::uint32_t signallingNan = 0xFF800001;
    EXPECT_EQ(convert(g_avx512, eImageBufferType::Real32, signallingNan, eImageBufferType::Real32), signallingNan);
}

TEST(ConvertImgOracle, Binary)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expectRows<float>(eImageBufferType::Real32, eImageBufferType::eBufferBinary,
                      {{0.9999, 0, 0, 0, 0}, {1, 1, 1, 1, 1}, {-3, 0, 0, 0, 0}, {nan, 0, 0, 0, 1}});
    expectRows<std::int8_t>(eImageBufferType::Int8, eImageBufferType::eBufferBinary,
                            {{-1, 0, 0, 0, 0}, {127, 1, 1, 1, 1}});
    expectRows<std::int16_t>(eImageBufferType::Int16, eImageBufferType::eBufferBinary, {{-32768, 0, 0, 0, 0}});
    expectRows<std::uint32_t>(eImageBufferType::UInt32, eImageBufferType::eBufferBinary, {{4294967295.0, 1, 1, 1, 1}});
    expectRows<std::uint8_t>(eImageBufferType::eBufferBinary, eImageBufferType::eBufferBinary, {{255, 1, 1, 1, 1}});
    expectRows<std::uint8_t>(eImageBufferType::eBufferBinary, eImageBufferType::Int16, {{255, 255, 255, 255, 255}});
}

} // namespace
} // namespace orlix::testing
