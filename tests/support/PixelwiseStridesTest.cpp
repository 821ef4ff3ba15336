// Pixelwise operators on images whose pixels lie in any order and at any distance.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "support/Executors.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"
#include "support/StridedImages.h"

namespace orlix::testing {
namespace {

using image::geometry5d;

const StridedForm g_dense = {.name = "dense"};

/// Calls the operator and asks the oracle about dense copies of both images.
void expectRightStrided(const PixelwiseOperator& each, const StridedImage& in, const StridedImage& out)
{
    const ImagePtr inBefore = in.makeDense();
    const ImagePtr outBefore = out.makeDense();
    EXPECT_NO_THROW(each.call(in.getConst(), out.get()));
    const ImagePtr outAfter = out.makeDense();
    EXPECT_TRUE(each.isRight(*inBefore, *outAfter));
    EXPECT_TRUE(sameImages(*inBefore, *in.makeDense())) << "the input is only read";
    EXPECT_TRUE(in.isOutsideIntact());
    EXPECT_TRUE(out.isOutsideIntact());
    if (!each.bWrites) {
        EXPECT_TRUE(sameImages(*outBefore, *outAfter)) << "the second input is only read";
    }
}

/// Forms of input and output that are worth a test together: each beside a dense one, and beside one of another kind.
std::vector<std::pair<StridedForm, StridedForm>> pairsOfForms(bool bInput)
{
    std::vector<std::pair<StridedForm, StridedForm>> pairs;
    if (bInput) {
        for (const StridedForm& form : allStridedForms()) {
            pairs.emplace_back(form, g_dense);
        }
    }
    for (std::size_t i = 0; i < g_stridedForms.size(); ++i) {
        pairs.emplace_back(g_dense, g_stridedForms[i]);
        if (bInput) {
            pairs.emplace_back(g_stridedForms[(i + 3) % g_stridedForms.size()], g_stridedForms[i]);
        }
    }
    return pairs;
}

TEST_P(PixelwiseTest, pixelsAtAnyDistance)
{
    GuardEdge edge = GuardEdge::eEnd;
    for (const ElementTypes& types : fewUnderThreadSanitizer(GetParam().types)) {
        for (const unsigned long x : fewUnderThreadSanitizer(std::array{1UL, 63UL, 64UL, 65UL, 200UL})) {
            for (const auto& [inForm, outForm] : pairsOfForms(!GetParam().input.empty())) {
                SCOPED_TRACE(std::string(image::getBufferTypeName(types.in)) + " to " +
                             image::getBufferTypeName(types.out) + ", " + std::to_string(x) + " pixels per line, " +
                             inForm.name + " to " + outForm.name);
                StridedImage in(*geometry5d(types.in, x, 5, 2, 3, 2), inForm, edge);
                StridedImage out(*geometry5d(types.out, x, 5, 2, 3, 2), outForm, edge);
                in.fillRandom(x);
                out.fillRandom(99);
                expectRightStrided(GetParam(), in, out);
                if (::testing::Test::HasFailure()) {
                    return;
                }
                edge = edge == GuardEdge::eEnd ? GuardEdge::eBegin : GuardEdge::eEnd;
            }
        }
    }
}

/// A call on one plan goes straight to level 3 where the plan allows it.
TEST_P(PixelwiseTest, pixelsAtAnyDistanceInOnePlan)
{
    const ElementTypes& types = GetParam().types.front();
    for (const auto& [x, y] : {std::pair{1UL, 1UL}, {1UL, 77UL}, {77UL, 1UL}, {64UL, 64UL}, {33UL, 9UL}}) {
        for (const auto& [inForm, outForm] : pairsOfForms(!GetParam().input.empty())) {
            SCOPED_TRACE(std::to_string(x) + "x" + std::to_string(y) + ", " + inForm.name + " to " + outForm.name);
            StridedImage in(*image::geometry2d(types.in, x, y), inForm);
            StridedImage out(*image::geometry2d(types.out, x, y), outForm);
            in.fillRandom(x);
            out.fillRandom(99);
            expectRightStrided(GetParam(), in, out);
        }
    }
}

TEST_P(PixelwiseTest, pixelsAtAnyDistanceInManyStrips)
{
    const ScopedExecutor scope(core::makePlainThreadExecutor(4));
    const ElementTypes& types = GetParam().types.front();
    const bool bInput = !GetParam().input.empty();
    for (const StridedForm& form : bInput ? allStridedForms() : g_stridedForms) {
        SCOPED_TRACE(form.name);
        StridedImage in(*image::geometry2d(types.in, 509, 700), bInput ? form : g_dense);
        StridedImage out(*image::geometry2d(types.out, 509, 700), form.isShared() ? g_stridedForms[2] : form);
        in.fillRandom(5);
        out.fillRandom(99);
        expectRightStrided(GetParam(), in, out);
    }
}

TEST_P(PixelwiseTest, pixelsAtAnyDistanceMakeADenseOutput)
{
    if (!GetParam().make) {
        return; // there is no such form
    }
    for (const ElementTypes& types : fewUnderThreadSanitizer(GetParam().types)) {
        for (const StridedForm& form : allStridedForms()) {
            SCOPED_TRACE(form.name);
            StridedImage in(*geometry5d(types.in, 37, 9, 3, 2, 2), form);
            in.fillRandom(7);
            const ImagePtr made = GetParam().make(in.getConst(), types.out);
            EXPECT_TRUE(GetParam().isRight(*in.makeDense(), *made));
            EXPECT_EQ(image::rowPitch(*made), 37U);
            EXPECT_TRUE(in.isOutsideIntact());
        }
    }
}

/// Input and output are the same pixels.
TEST_P(PixelwiseTest, pixelsAtAnyDistanceInPlace)
{
    for (const ElementTypes& types : GetParam().types) {
        if (types.in != types.out) {
            continue;
        }
        for (const StridedForm& form : g_stridedForms) {
            SCOPED_TRACE(form.name);
            StridedImage both(*image::geometry3d(types.in, 203, 71, 2), form);
            both.fillRandom(7);
            const ImagePtr before = both.makeDense();
            EXPECT_NO_THROW(GetParam().call(both.getConst(), both.get()));
            EXPECT_TRUE(GetParam().isRight(*before, *both.makeDense()));
            EXPECT_TRUE(both.isOutsideIntact());
        }
    }
}

} // namespace
} // namespace orlix::testing
