// What holds of every operator that makes a pixel of its output from the pixel of its input at the same place. An
// operator's own tests describe it once and take these:
//
//     INSTANTIATE_TEST_SUITE_P(CopyImg, PixelwiseTest, ::testing::Values(copyOperator()));
//
// and have left to show what its values are and what its rules refuse. The checks are in PixelwiseImagesTest.cpp,
// PixelwiseRunsTest.cpp and PixelwiseStridesTest.cpp.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "support/Images.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace orlix::testing {

struct ElementTypes
{
    image::eImageBufferType in;
    image::eImageBufferType out;
};

/// An operator as the checks call it. `in` and `out` have the same sizes and one of its pairs of element types.
struct PixelwiseOperator
{
    std::string name;                ///< of its level-1 class, "CopyImgLvl1"
    std::vector<ElementTypes> types; ///< all that are worth a test
    /// Its free function on given images, or what stands for it. Throws where it fails.
    std::function<void(const ImageConstPtr& in, const ImagePtr& out)> call;
    /// The form that makes its output, of element type `to`; empty where there is none.
    std::function<ImagePtr(const ImageConstPtr& in, image::eImageBufferType to)> make = {};
    /// Its asynchronous form: the level-1 processor under way.
    std::function<boost::shared_ptr<processor::BaseProcessor>(const ImageConstPtr& in, const ImagePtr& out)> start;
    /// A level-1 processor that is set up and not started.
    std::function<boost::shared_ptr<processor::BaseProcessor>(const ImageConstPtr& in, const ImagePtr& out)> prepare;
    /// The oracle: does `out` hold what a plain loop makes of `in`?
    std::function<::testing::AssertionResult(const image::BaseImage& in, const image::BaseImage& out)> isRight;

    std::string input = "InImg";   ///< attribute of `in`; empty for an operator that reads no image
    std::string output = "OutImg"; ///< attribute of `out`
    /// How a refusal of images of different sizes ends.
    std::string mismatch = "sizes have to be the same";
    bool bWrites = true; ///< false for one that reads `out` as well
};

inline void PrintTo(const PixelwiseOperator& each, std::ostream* stream)
{
    *stream << each.name;
}

class PixelwiseTest : public ::testing::TestWithParam<PixelwiseOperator>
{
protected:
    /// The text of the failure of `call`, empty where there is none.
    static std::string failureOf(const ImageConstPtr& in, const ImagePtr& out);
    /// Calls it and asks the oracle. An image that the operator only reads has to be as it was.
    static void expectRight(const ImagePtr& in, const ImagePtr& out);
    /// The same with the output that it makes, where it makes any.
    static void expectMadeRight(const ImagePtr& in, const image::eImageBufferType& to);
    /// New images of those sizes, filled with bytes of all kinds.
    static std::pair<ImagePtr, ImagePtr> makePair(const ElementTypes& types, unsigned long x, unsigned long y,
                                                  unsigned long z = 1, unsigned long c = 1, unsigned long t = 1);
};

} // namespace orlix::testing
