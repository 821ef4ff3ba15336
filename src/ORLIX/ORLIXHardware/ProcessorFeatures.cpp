// Asks the processor by CPUID and the system by XGETBV.
#include "ORLIX/ORLIXHardware/ProcessorFeatures.h"

#include <cpuid.h>

#include <cstring>

namespace orlix::hard::details {

namespace {

constexpr unsigned long g_avxStates = 0x06;    // XMM and the upper halves of YMM
constexpr unsigned long g_avx512States = 0xe6; // these, the mask registers and both parts of ZMM
constexpr unsigned g_avx512Features = bit_AVX512F | bit_AVX512BW | bit_AVX512DQ | bit_AVX512VL;

template <class TWord>
bool hasAll(TWord word, TWord bits)
{
    return (word & bits) == bits;
}

unsigned long readSavedStates()
{
    unsigned low = 0, high = 0;
    __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0)); // the intrinsic needs a compiler flag
    return static_cast<unsigned long>(high) << 32 | low;
}

} // namespace

FeatureWords readFeatureWords()
{
    FeatureWords words;
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (__get_cpuid(1, &eax, &ebx, &ecx, &edx)) {
        words.leaf1Ecx = ecx;
        words.leaf1Edx = edx;
    }
    if (__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx)) {
        words.leaf7Ebx = ebx;
    }
    if (hasAll<unsigned>(words.leaf1Ecx, bit_OSXSAVE)) {
        words.savedStates = readSavedStates();
    }
    return words;
}

bool hasInstructionSet(const FeatureWords& words, const eInstructionSet& set)
{
    const bool bAvx = hasAll<unsigned>(words.leaf1Ecx, bit_AVX | bit_OSXSAVE) && hasAll(words.savedStates, g_avxStates);
    const bool bAvx2 = bAvx && hasAll<unsigned>(words.leaf7Ebx, bit_AVX2);
    switch (static_cast<eInstructionSet::domain>(set)) {
    case eInstructionSet::eNone: return true;
    case eInstructionSet::eSSE2: return hasAll<unsigned>(words.leaf1Edx, bit_SSE2);
    case eInstructionSet::eAVX: return bAvx;
    case eInstructionSet::eAVX2: return bAvx2;
    case eInstructionSet::eAVX512:
        return bAvx2 && hasAll(words.leaf7Ebx, g_avx512Features) && hasAll(words.savedStates, g_avx512States);
    }
    return false;
}

std::string readVendorName()
{
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (!__get_cpuid(0, &eax, &ebx, &ecx, &edx)) {
        return "unknown";
    }
    const unsigned words[3] = {ebx, edx, ecx}; // in this order
    char text[sizeof words + 1] = {};
    std::memcpy(text, words, sizeof words);
    return text[0] ? text : "unknown";
}

std::string readModelName()
{
    constexpr unsigned firstLeaf = 0x80000002, nbLeaves = 3;
    unsigned registers[nbLeaves][4] = {};
    for (unsigned leaf = 0; leaf < nbLeaves; ++leaf) {
        unsigned* r = registers[leaf];
        __get_cpuid(firstLeaf + leaf, &r[0], &r[1], &r[2], &r[3]);
    }
    char text[sizeof registers + 1] = {};
    std::memcpy(text, registers, sizeof registers);
    const std::string name = text;
    const std::size_t first = name.find_first_not_of(' ');
    return first == std::string::npos ? "unknown" : name.substr(first, name.find_last_not_of(' ') - first + 1);
}

} // namespace orlix::hard::details
