// Packs and registers move exactly their own bytes, whatever the address, under every instruction set of this
// processor.
#include "ORLIXMath/Simd/PackCopy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

namespace orlix::simd {
namespace {

using test::CopyFunction;
using test::CopyRow;
using test::CopyTable;

constexpr std::size_t g_room = 512; // the largest pack has 256 bytes; the rest are guards and misalignment

struct SetCase
{
    const char* name;
    const CopyTable* table;
    unsigned long registerBytes;
    bool bAvailable;
};

// The compiler's own detection, since this layer stands below the one that offers the question.
std::array<SetCase, 5> allSets()
{
    __builtin_cpu_init();
    const bool bAvx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                         __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
    return {{{"plain", &test::g_copyTable_plain, 0, true},
             {"SSE2", &test::g_copyTable_sse2, 16, true},
             {"AVX", &test::g_copyTable_avx, 32, __builtin_cpu_supports("avx") != 0},
             {"AVX2", &test::g_copyTable_avx2, 32, __builtin_cpu_supports("avx2") != 0},
             {"AVX512", &test::g_copyTable_avx512, 64, bAvx512}}};
}

class PackTest : public testing::TestWithParam<SetCase>
{
protected:
    void SetUp() override
    {
        if (!GetParam().bAvailable) {
            GTEST_SKIP() << "this processor has no " << GetParam().name;
        }
    }
};

/// Calls `copy` with the given misalignments and expects that exactly `nbBytes` bytes arrive.
void expectCopies(CopyFunction copy, unsigned long nbBytes, std::size_t fromShift, std::size_t toShift)
{
    alignas(64) unsigned char from[g_room], to[g_room], expected[g_room];
    for (std::size_t i = 0; i < g_room; ++i) {
        from[i] = static_cast<unsigned char>(7 * i + 1);
        to[i] = static_cast<unsigned char>(0xa5 ^ i);
    }
    std::memcpy(expected, to, g_room);
    std::memcpy(expected + 64 + toShift, from + 64 + fromShift, nbBytes);
    copy(from + 64 + fromShift, to + 64 + toShift);
    EXPECT_EQ(std::mismatch(to, to + g_room, expected).first - to, static_cast<std::ptrdiff_t>(g_room))
        << nbBytes << " bytes, shifted by " << fromShift << " and " << toShift;
}

TEST_P(PackTest, holdsTheSameNumberWhateverTheType)
{
    const SetCase& set = GetParam();
    const std::string name = set.name;
    for (const CopyRow& row : set.table->rows) {
        const bool bFloat = &row == &set.table->rows[6];
        const unsigned long expected = name == "plain" ? 1 : name == "AVX" && !bFloat ? 0 : set.registerBytes;
        EXPECT_EQ(row.nbElements, expected);
        EXPECT_EQ(row.registerBytes, set.registerBytes);
    }
}

TEST_P(PackTest, storesAPackAtAnyAddress)
{
    for (const CopyRow& row : GetParam().table->rows) {
        for (std::size_t shift = 0; row.copy && shift < 8; ++shift) {
            const std::size_t step = row.elementBytes; // elements themselves are aligned
            expectCopies(row.copy, row.nbElements * row.elementBytes, shift * step, (7 - shift) * step);
        }
    }
}

TEST_P(PackTest, streamsAPackToAnAlignedAddress)
{
    for (const CopyRow& row : GetParam().table->rows) {
        for (std::size_t shift = 0; row.streamCopy && shift < 8; ++shift) {
            expectCopies(row.streamCopy, row.nbElements * row.elementBytes, shift * row.elementBytes, 0);
        }
    }
}

TEST_P(PackTest, fillsAPackWithOneElementBitForBit)
{
    // As floats: -0, a signalling NaN, a denormal number, and one like any other.
    for (const unsigned int bits : {0x80000000U, 0x7fa12345U, 0x00000081U, 0xc2f6e979U}) {
        for (const CopyRow& row : GetParam().table->rows) {
            if (!row.broadcast) {
                continue;
            }
            alignas(64) unsigned char to[g_room];
            unsigned char expected[g_room];
            std::memset(to, 0xa5, g_room);
            std::memset(expected, 0xa5, g_room);
            for (unsigned long i = 0; i < row.nbElements; ++i) {
                std::memcpy(expected + 64 + i * row.elementBytes, &bits, row.elementBytes);
            }
            row.broadcast(&bits, to + 64);
            EXPECT_EQ(std::memcmp(to, expected, g_room), 0) << row.elementBytes << " bytes of " << bits;
        }
    }
}

TEST_P(PackTest, movesOneRegister)
{
    const CopyRow& row = GetParam().table->rows[0];
    for (std::size_t shift = 0; row.copyByRegister && shift < 64; ++shift) {
        expectCopies(row.copyByRegister, row.registerBytes, shift, 63 - shift);
        expectCopies(row.streamByRegister, row.registerBytes, shift, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, PackTest, testing::ValuesIn(allSets()),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace orlix::simd
