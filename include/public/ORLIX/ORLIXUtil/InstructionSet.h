// Instruction sets that a kernel can be written for.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"

#include <array>

namespace orlix {

/// `eAVX512` stands for F, BW, DQ and VL together. The value is also the kernel's figure of merit.
struct eInstructionSet
{
    enum domain { eNone = 0, eSSE2 = 1, eAVX = 5, eAVX2 = 7, eAVX512 = 8 };
    ORLIX_ENUMERATION(eInstructionSet, eNone);
};

/// From plain code to the widest.
inline constexpr std::array<eInstructionSet::domain, 5> g_allInstructionSets = {
    eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX, eInstructionSet::eAVX2,
    eInstructionSet::eAVX512};

} // namespace orlix
