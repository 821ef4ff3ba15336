// Instruction sets: which feature bits and saved registers each needs, and that this processor is read rightly.
#include "ORLIX/ORLIXHardware/ProcessorInfo.h"

#include "ORLIX/ORLIXHardware/ProcessorFeatures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace orlix::hard {
namespace {

// Bit numbers as the processor manuals give them.
constexpr unsigned g_sse2 = 1u << 26;
constexpr unsigned g_osxsave = 1u << 27, g_avx = 1u << 28;
constexpr unsigned g_avx2 = 1u << 5;
constexpr unsigned g_avx512f = 1u << 16, g_avx512dq = 1u << 17, g_avx512bw = 1u << 30, g_avx512vl = 1u << 31;
constexpr unsigned long g_allStates = 0xe7;

details::FeatureWords everything()
{
    return {g_osxsave | g_avx, g_sse2, g_avx2 | g_avx512f | g_avx512dq | g_avx512bw | g_avx512vl, g_allStates};
}

/// The sets offered, as a string of their values.
std::string setsOf(const details::FeatureWords& words)
{
    std::string sets;
    for (const auto set : g_allInstructionSets) {
        if (details::hasInstructionSet(words, set)) {
            sets += std::to_string(set);
        }
    }
    return sets;
}

TEST(ProcessorFeatures, eachSetNeedsItsBits)
{
    EXPECT_EQ(setsOf({}), "0");
    EXPECT_EQ(setsOf({0, g_sse2, 0, 0}), "01");
    EXPECT_EQ(setsOf({g_osxsave | g_avx, g_sse2, 0, 0x7}), "015");
    EXPECT_EQ(setsOf({g_osxsave | g_avx, g_sse2, g_avx2, 0x7}), "0157");
    EXPECT_EQ(setsOf(everything()), "01578");
}

TEST(ProcessorFeatures, avx512NeedsAllFourExtensions)
{
    for (const unsigned extension : {g_avx512f, g_avx512dq, g_avx512bw, g_avx512vl}) {
        details::FeatureWords words = everything();
        words.leaf7Ebx &= ~extension;
        EXPECT_EQ(setsOf(words), "0157") << std::hex << extension;
    }
}

TEST(ProcessorFeatures, systemHasToSaveTheRegisters)
{
    details::FeatureWords words = everything();
    words.leaf1Ecx &= ~g_osxsave;
    EXPECT_EQ(setsOf(words), "01");
    words = everything();
    words.savedStates = 0x3;
    EXPECT_EQ(setsOf(words), "01") << "no upper halves";
    for (const unsigned long state : {0x20ul, 0x40ul, 0x80ul}) {
        words.savedStates = g_allStates & ~state;
        EXPECT_EQ(setsOf(words), "0157") << std::hex << state;
    }
}

TEST(ProcessorFeatures, otherValuesNameNoSet)
{
    EXPECT_FALSE(details::hasInstructionSet(everything(), static_cast<eInstructionSet::domain>(3)));
    EXPECT_FALSE(getProcessorInfo().hasInstructionSet(static_cast<eInstructionSet::domain>(6)));
}

TEST(ProcessorInfo, agreesWithTheCompilersOwnDetection)
{
    __builtin_cpu_init();
    const ProcessorInfo& info = getProcessorInfo();
    EXPECT_TRUE(info.hasInstructionSet(eInstructionSet::eNone));
    EXPECT_EQ(info.hasInstructionSet(eInstructionSet::eSSE2), __builtin_cpu_supports("sse2") != 0);
    EXPECT_EQ(info.hasInstructionSet(eInstructionSet::eAVX), __builtin_cpu_supports("avx") != 0);
    EXPECT_EQ(info.hasInstructionSet(eInstructionSet::eAVX2), __builtin_cpu_supports("avx2") != 0);
    EXPECT_EQ(info.hasInstructionSet(eInstructionSet::eAVX512),
              __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                  __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl"));
}

TEST(ProcessorInfo, listsTheSetsInOrder)
{
    const auto& sets = getProcessorInfo().getInstructionSets();
    ASSERT_GE(sets.size(), 2u) << "every x86-64 processor has SSE2";
    EXPECT_EQ(sets[0], eInstructionSet::eNone);
    EXPECT_TRUE(std::is_sorted(sets.begin(), sets.end()));
}

TEST(ProcessorInfo, knowsItsMakerAsTheCompilerDoes)
{
    __builtin_cpu_init();
    const std::string& vendor = getProcessorInfo().getVendorName();
    EXPECT_EQ(vendor == "GenuineIntel", __builtin_cpu_is("intel") != 0) << vendor;
    EXPECT_EQ(vendor == "AuthenticAMD", __builtin_cpu_is("amd") != 0) << vendor;
    EXPECT_FALSE(vendor.empty());
}

TEST(ProcessorInfo, hasANameWithoutBlanksAround)
{
    const std::string& name = getProcessorInfo().getModelName();
    ASSERT_FALSE(name.empty());
    EXPECT_NE(name.front(), ' ');
    EXPECT_NE(name.back(), ' ');
    EXPECT_GE(getProcessorInfo().getNbLogicalCores(), 1u);
}

} // namespace
} // namespace orlix::hard
