// What comparison is measured on: element types and modes.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgComparisonTolerance.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include <array>
#include <string>
#include <vector>

namespace orlix::bench {

using imaproc::attr::eImgComparisonToleranceMode;

struct CompareCase
{
    image::eImageBufferType type;
    eImgComparisonToleranceMode::domain mode;

    /// "exactly/UInt8", "absolutely/UInt8".
    std::string getName() const;
    boost::shared_ptr<const imaproc::attr::ImgComparisonTolerance> makeTolerance() const;
};

/// Every storage type in every mode.
std::vector<CompareCase> makeCompareCases();

struct CompareSize
{
    const char* name;
    unsigned long sizeX, sizeY;
    bool bAllThreads; ///< else one
};

/// One call's own costs; plans in L2; in the last-level cache; beyond it.
inline constexpr std::array<CompareSize, 4> g_compareSizes = {{
    {"64x64", 64, 64, false},
    {"512x512", 512, 512, false},
    {"4096x4096", 4096, 4096, true},
    {"8192x8192", 8192, 8192, true},
}};

/// "compareImg/exactly/UInt8/512x512/threads:1".
std::string nameComparison(const CompareCase& work, const CompareSize& size, unsigned long nbThreads);

} // namespace orlix::bench
