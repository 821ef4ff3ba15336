// Pixelwise operators on images of all sizes and in memory of all kinds.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "support/Executors.h"
#include "support/FewUnderThreads.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"
#include "support/StepImages.h"

#include <boost/make_shared.hpp>
#include <rapidcheck.h>

#include <sys/mman.h>

namespace orlix::testing {

using image::eImageBufferType;
using image::geometry5d;

std::string PixelwiseTest::failureOf(const ImageConstPtr& in, const ImagePtr& out)
{
    try {
        GetParam().call(in, out);
    } catch (const BaseException& error) {
        return error.what();
    }
    return {};
}

void PixelwiseTest::expectRight(const ImagePtr& in, const ImagePtr& out)
{
    const ImagePtr inBefore = plainCopy(*in);
    const ImagePtr outBefore = plainCopy(*out);
    EXPECT_EQ(failureOf(in, out), "");
    EXPECT_TRUE(GetParam().isRight(*in, *out));
    EXPECT_TRUE(sameImages(*inBefore, *in)) << "the input is only read";
    if (!GetParam().bWrites) {
        EXPECT_TRUE(sameImages(*outBefore, *out)) << "the second input is only read";
    }
}

void PixelwiseTest::expectMadeRight(const ImagePtr& in, const eImageBufferType& to)
{
    if (GetParam().make) {
        const image::BaseImageGeometry& from = in->getGeometry();
        const image::BaseImageGeometry geometry(to, from.getSizeX(), from.getSizeY(), from.getVolumeGeometry(),
                                                from.getColorGeometry(), from.getTemporalGeometry());
        const ImagePtr made = makeOnSpoiltMemory(geometry, [&] { return GetParam().make(in, to); });
        EXPECT_FALSE(made->sharesPixelsWith(*in));
        EXPECT_EQ(made->getGeometry().toString(), geometry.toString());
        EXPECT_TRUE(GetParam().isRight(*in, *made));
    }
}

std::pair<ImagePtr, ImagePtr> PixelwiseTest::makePair(const ElementTypes& types, unsigned long x, unsigned long y,
                                                      unsigned long z, unsigned long c, unsigned long t)
{
    return {makeRandom(*geometry5d(types.in, x, y, z, c, t), x + 1),
            makeRandom(*geometry5d(types.out, x, y, z, c, t), 99)};
}

namespace {

/// As wrapped images lie in memory: at either forbidden page, with and without gaps, beside a cache line.
const WrapForm g_forms[] = {{GuardEdge::eEnd, 0, 0},
                            {GuardEdge::eBegin, 0, 0},
                            {GuardEdge::eEnd, 3, 5},
                            {GuardEdge::eEnd, 0, 7, 1, false},
                            {GuardEdge::eBegin, 5, 0, 3, false}};

std::string nameOf(const ElementTypes& types)
{
    return std::string(image::getBufferTypeName(types.in)) + " to " + image::getBufferTypeName(types.out);
}

TEST_P(PixelwiseTest, everyTypeAndLineLength)
{
    for (const ElementTypes& types : GetParam().types) {
        SCOPED_TRACE(nameOf(types));
        for (const unsigned long x : {1UL, 2UL, 15UL, 16UL, 17UL, 31UL, 33UL, 63UL, 64UL, 65UL, 127UL, 199UL, 1023UL}) {
            for (const unsigned long y : {1UL, 3UL, 64UL}) {
                const auto [in, out] = makePair(types, x, y);
                expectRight(in, out);
                expectMadeRight(in, types.out);
            }
        }
    }
}

TEST_P(PixelwiseTest, fiveAxes)
{
    for (const ElementTypes& types : GetParam().types) {
        SCOPED_TRACE(nameOf(types));
        const auto [in, out] = makePair(types, 37, 29, 4, 3, 2);
        expectRight(in, out);
        expectMadeRight(in, types.out);
    }
}

TEST_P(PixelwiseTest, emptyAxes)
{
    for (const ElementTypes& types : GetParam().types) {
        for (int axis = 0; axis < 5; ++axis) {
            unsigned long sizes[] = {7, 5, 3, 2, 2};
            sizes[axis] = 0;
            const auto [in, out] = makePair(types, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]);
            expectRight(in, out);
            expectMadeRight(in, types.out);
        }
    }
}

/// Strips of one line each, of a few lines, and of many lines of plans that are one pixel wide.
TEST_P(PixelwiseTest, stripsOfAnyHeight)
{
    for (const ElementTypes& types : {GetParam().types.front(), GetParam().types.back()}) {
        for (const auto& [x, y] :
             fewUnderThreadSanitizer(std::array{std::pair{400001UL, 3UL}, std::pair{70001UL, 23UL},
                                                std::pair{1UL, 500003UL}, std::pair{3UL, 170001UL}})) {
            SCOPED_TRACE(nameOf(types) + ", " + std::to_string(x) + "x" + std::to_string(y));
            const auto [in, out] = makePair(types, x, y);
            expectRight(in, out);
            expectMadeRight(in, types.out);
        }
    }
}

TEST_P(PixelwiseTest, wrappedMemoryIsTouchedNowhereElse)
{
    for (const ElementTypes& types : fewUnderThreadSanitizer(GetParam().types)) {
        SCOPED_TRACE(nameOf(types));
        for (const unsigned long x : {1UL, 16UL, 61UL, 64UL, 130UL}) {
            for (const WrapForm& inForm : g_forms) {
                const WatchedImage in(*geometry5d(types.in, x, 9, 2, 1, 2), inForm);
                fillRandom(*in.get(), x);
                expectMadeRight(in.get(), types.out);
                for (const WrapForm& outForm : g_forms) {
                    const WatchedImage out(*geometry5d(types.out, x, 9, 2, 1, 2), outForm);
                    expectRight(in.get(), out.get());
                    ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << x << " elements per line";
                }
            }
        }
    }
}

TEST_P(PixelwiseTest, timeStepsInDifferentMemory)
{
    const auto geometry = [](const eImageBufferType& type, unsigned long sizeT) {
        return *geometry5d(type, 37, 9, 2, 2, sizeT);
    };
    for (const ElementTypes& types : GetParam().types) {
        SCOPED_TRACE(nameOf(types));
        const WatchedImage in(geometry(types.in, 3), {GuardEdge::eEnd, 3, 5});
        const WatchedImage out(geometry(types.out, 3), {GuardEdge::eEnd, 0, 7, 1, false});
        const ImagePtr joinedIn = joined(makeRandom(geometry(types.in, 2), 5), in.get());
        const ImagePtr joinedOut = joined(out.get(), makeRandom(geometry(types.out, 2), 6));
        const ImagePtr grownIn = makeGrown(geometry(types.in, 5), 7);
        const ImagePtr grownOut = makeGrown(geometry(types.out, 5), 8);
        fillRandom(*in.get(), 9);
        expectRight(joinedIn, grownOut);
        expectRight(joinedIn, joinedOut);
        expectRight(grownIn, makeRandom(geometry(types.out, 5)));
        expectRight(makeRandom(geometry(types.in, 5), 3), joinedOut);
        expectMadeRight(joinedIn, types.out);
        expectMadeRight(grownIn, types.out);
        EXPECT_TRUE(in.isOutsideIntact() && out.isOutsideIntact());
    }
}

TEST_P(PixelwiseTest, wrappedMemoryInManyStrips)
{
    const ElementTypes& types = GetParam().types.front();
    const ScopedExecutor scope(core::makePlainThreadExecutor(4));
    for (const unsigned long gap : {0UL, 3UL}) {
        const WatchedImage in(*geometry5d(types.in, 1021, 1500, 1, 1, 1), {GuardEdge::eEnd, gap, 0});
        fillRandom(*in.get(), gap);
        const WatchedImage out(*geometry5d(types.out, 1021, 1500, 1, 1, 1), {GuardEdge::eEnd, 3 - gap, 0});
        expectRight(in.get(), out.get());
        EXPECT_TRUE(in.isOutsideIntact() && out.isOutsideIntact());
    }
}

/// Lines of the two channels take turns, and so do the time steps of each.
TEST_P(PixelwiseTest, axesMayLieInMemoryInAnyOrder)
{
    const ScopedExecutor scope(core::makePlainThreadExecutor(4));
    for (const ElementTypes& types : GetParam().types) {
        SCOPED_TRACE(nameOf(types));
        const auto [in, out] = makePair(types, 70, 30, 2, 2, 2);
        const auto inTurns = [](const ImagePtr& image) {
            return image::wrapImage(image->getGeometry(), image->accessRow(0, 0, 0, 0), {280, 280 * 30, 70, 140},
                                    nullptr);
        };
        expectRight(inTurns(in), out);
        expectRight(in, inTurns(out));
    }
}

/// Memory of two images in turn, by plans and by lines: what is written into one leaves the other as it is.
TEST_P(PixelwiseTest, neighbouringPlansAndRowsStay)
{
    constexpr unsigned long sizeX = 37, sizeY = 11, plan = sizeX * sizeY;
    for (const ElementTypes& types : GetParam().types) {
        SCOPED_TRACE(nameOf(types));
        const unsigned long size = image::elementSize(types.out);
        const auto geometry = image::geometry3d(types.out, sizeX, sizeY, 3);
        std::vector<std::byte> memory(6 * plan * size);
        const image::BufferStrides byPlan = {sizeX, 2 * plan, 6 * plan, 6 * plan};
        const image::BufferStrides byRow = {2 * sizeX, 2 * plan, 6 * plan, 6 * plan};
        for (const auto& [strides, second] : {std::pair{byPlan, plan}, std::pair{byRow, sizeX}}) {
            const ImagePtr one = image::wrapImage(*geometry, memory.data(), strides, nullptr);
            const ImagePtr other = image::wrapImage(*geometry, memory.data() + second * size, strides, nullptr);
            fillRandom(*one, 1);
            fillRandom(*other, 2);
            const ImagePtr before = plainCopy(*other);
            expectRight(makeRandom(*image::geometry3d(types.in, sizeX, sizeY, 3)), one);
            EXPECT_TRUE(sameImages(*before, *other));
        }
    }
}

TEST_P(PixelwiseTest, theInputMayLieInMemoryThatCannotBeWritten)
{
    const ElementTypes& types = GetParam().types.front();
    constexpr unsigned long sizeX = 61;
    constexpr unsigned long sizeY = 60;
    const unsigned long nbBytes = sizeX * sizeY * image::elementSize(types.in);
    void* const page = mmap(nullptr, nbBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(page, MAP_FAILED);
    for (const unsigned long gap : {0UL, 1UL}) {
        const auto [filled, out] = makePair(types, sizeX - gap, sizeY);
        const ImagePtr in = image::wrapImage(filled->getGeometry(), page, {sizeX, 0, 0, 0}, nullptr);
        fillRandom(*in, gap);
        ASSERT_EQ(mprotect(page, nbBytes, PROT_READ), 0);
        expectRight(in, out);
        ASSERT_EQ(mprotect(page, nbBytes, PROT_READ | PROT_WRITE), 0);
    }
    munmap(page, nbBytes);
}

TEST_P(PixelwiseTest, calibrationGoesToAMadeOutputAlone)
{
    const auto [in, out] = makePair(GetParam().types.front(), 8, 8);
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init2d("um", 0.5F, 0.25F, 3, 4);
    in->setGeometricCalibration(calibration);
    expectRight(in, out);
    EXPECT_FALSE(out->hasGeometricCalibration());
    if (GetParam().make) {
        const ImagePtr made = GetParam().make(in, out->getBufferType());
        ASSERT_TRUE(made->hasGeometricCalibration());
        EXPECT_EQ(*made->getGeometricCalibration(), *calibration);
    }
}

TEST_P(PixelwiseTest, randomGeometries)
{
    const std::vector<ElementTypes>& all = GetParam().types;
    EXPECT_TRUE(rc::check("every pixel is what the oracle says", [&] {
        const auto size = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most + 1); };
        const ElementTypes& types = all[*rc::gen::inRange<std::size_t>(0, all.size())];
        const auto geometry = geometry5d(types.in, size(150), size(40), size(4), size(3), size(2));
        const auto [in, out] = makePair(types, geometry->getSizeX(), geometry->getSizeY(), geometry->getSizeZ(),
                                        geometry->getSizeC(), geometry->getSizeT());
        fillRandom(*in, size(1000));
        RC_ASSERT(failureOf(in, out).empty());
        RC_ASSERT(static_cast<bool>(GetParam().isRight(*in, *out)));
    }));
}

} // namespace
} // namespace orlix::testing
