// Plans cut into strips: every line once, whole blocks in dense images, the same for input and output and on every
// executor.
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYStrip2dSplit.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StripProcessors.h"
#include "support/Executors.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <numeric>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;

template <class TSplit, class TImagePtr>
ProcessingResult<bool> cut(TSplit& split, const TImagePtr& image)
{
    return split.initBase(image, eStripAllocationType::eStripAllocationDefault,
                          eStripParsingDirection::eStripParsingForward, eStripParsingDirection::eStripParsingForward);
}

/// Strips of a plan, given to `StripRecorder`; 0 strip bytes mean the default policy.
std::vector<StripSeen> stripsOf(const ImagePtr& in, const ImagePtr& out, unsigned long stripBytes = 0)
{
    const auto level = makeInitialised<PlanLevel>();
    if (stripBytes != 0) {
        level->m_policy.initStripBytes(stripBytes);
    }
    level->set<InPicture>(in);
    level->set<OutPicture>(out);
    EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
    return StripRecorder::takeSeen();
}

TEST(ImageYStrip2dSplit, TheSameStripsOnEveryExecutor)
{
    const ImagePtr in = createImage(*geometry2d(eImageBufferType::UInt16, 1000, 1001));
    const ImagePtr out = createImage(*geometry2d(eImageBufferType::UInt16, 1000, 1001));
    std::vector<unsigned long> first;
    for (const NamedExecutor& each : makeAllExecutors()) {
        const ScopedExecutor scope(each.executor);
        std::vector<unsigned long> starts;
        for (const StripSeen& strip : stripsOf(in, out)) {
            EXPECT_EQ(strip.in, in->accessRow(strip.start, 0, 0, 0));
            EXPECT_EQ(strip.out, out->accessRow(strip.start, 0, 0, 0));
            starts.push_back(strip.start);
        }
        first = first.empty() ? starts : first;
        EXPECT_GT(starts.size(), 1u);
        EXPECT_EQ(starts, first) << each.name;
    }
}

TEST(ImageYStrip2dSplit, WithoutElementsThereIsNoStrip)
{
    for (const auto& geometry : {geometry2d(eImageBufferType::UInt8, 0, 5), geometry2d(eImageBufferType::UInt8, 5, 0),
                                 geometry2d(eImageBufferType::UInt8, 0, 1UL << 60)}) {
        EXPECT_TRUE(stripsOf(createImage(*geometry), createImage(*geometry)).empty()) << geometry->toString();
    }
}

TEST(ImageYStrip2dSplit, RefusesWhatIsNoPlan)
{
    InStripSplit split;
    const ImageConstPtr nothing;
    EXPECT_EQ(failureOf(cut(split, nothing)), "There is no image to cut: set the attribute that holds it");
    for (const auto& geometry : {image::geometry5d(eImageBufferType::UInt8, 3, 2, 2, 1, 1),
                                 image::geometry5d(eImageBufferType::UInt8, 3, 2, 1, 2, 1),
                                 image::geometry5d(eImageBufferType::UInt8, 3, 2, 1, 1, 0)}) {
        const ImageConstPtr image = createImage(*geometry);
        EXPECT_EQ(failureOf(cut(split, image)), "Strips are cut from one plan, but the image is " +
                                                    geometry->toString() + ": cut it into plans first");
    }
}

TEST(ImageYStrip2dSplit, FeedsItsAttributeOfItsClass)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 7, 20));
    OutStripSplit split;
    EXPECT_EQ(failureOf(cut(split, image)), "no failure");
    EXPECT_EQ(split.getAttributeName(), "OutStrip");
    EXPECT_EQ(split.getAttributeToolTip(), "A strip that comes out");
    EXPECT_EQ(split.getSplitDynamicType(), processor::eSplitDynamicType::eImageStripSplit);
    EXPECT_EQ(split.getImageStripSplitType(), eImageStripSplitType::eYStrip2d);
    EXPECT_TRUE(split.checkProcessorType(StripRecorder()));
    EXPECT_FALSE(split.checkProcessorType(PlanLevel()));

    const auto first = makeInitialised<StripRecorder>();
    const auto second = makeInitialised<StripRecorder>();
    EXPECT_EQ(failureOf(split.processAttribute(*first, 3, 4, core::BaseRequestOrigin(0))), "no failure");
    EXPECT_EQ(failureOf(split.processAttribute(*second, 7, 13, core::BaseRequestOrigin(1))), "no failure");
    EXPECT_EQ(first->getStorage<OutStrip>()->getStripStartOffsetY(), 3u) << "each processor has a strip of its own";
    EXPECT_EQ(first->getStorage<OutStrip>()->getStripSizeY(), 4u);
    EXPECT_EQ(first->getStorage<OutStrip>()->getImageSizeY(), 20u);
    EXPECT_EQ(second->getStorage<OutStrip>()->getStripStartOffsetY(), 7u);
    EXPECT_EQ(second->getStorage<OutStrip>()->accessBuffer(), image->accessRow(7, 0, 0, 0));
}

// Lines follow one another and are all there. Every strip but the last holds whole blocks of 64 elements. Strips are as
// high as the policy asks, rounded up.
RC_GTEST_PROP(ImageYStrip2dSplitProperty, StripsCoverAllLinesOnce, ())
{
    const unsigned long sizeX = *rc::gen::inRange(1UL, 300UL);
    const unsigned long sizeY = *rc::gen::inRange(1UL, 400UL);
    const unsigned long gap = *rc::gen::element(0UL, 0UL, 3UL);
    const bool bWrapped = gap != 0 || *rc::gen::arbitrary<bool>();
    const eImageBufferType type = *rc::gen::elementOf(
        std::vector<eImageBufferType::domain>(image::g_allBufferTypes.begin(), image::g_allBufferTypes.end()));
    const unsigned long lineBytes = sizeX * image::elementSize(type);
    const unsigned long stripBytes = *rc::gen::inRange(1UL, 40000UL);
    const auto geometry = geometry2d(type, sizeX, sizeY);
    std::vector<std::uint32_t> memory((sizeX + gap) * sizeY);
    const ImagePtr in =
        bWrapped ? image::wrapImage(*geometry, memory.data(), {sizeX + gap, 0, 0, 0}, nullptr) : createImage(*geometry);
    const ImagePtr out = createImage(*geometry);

    const std::vector<StripSeen> strips = stripsOf(in, out, stripBytes);
    const unsigned long blockLines = 64 / std::gcd(64UL, sizeX);
    unsigned long next = 0;
    for (const StripSeen& strip : strips) {
        RC_ASSERT(strip.start == next);
        RC_ASSERT(strip.size > 0);
        const bool bFirstLine = strip.in == in->accessRow(strip.start, 0, 0, 0);
        RC_ASSERT(bFirstLine);
        next += strip.size;
        RC_ASSERT(next == sizeY || strip.size * sizeX % 64 == 0);
        RC_ASSERT(strip.size <= blockLines || (strip.size - blockLines) * lineBytes < stripBytes);
    }
    RC_ASSERT(next == sizeY);
}

TEST(ImageYStrip2dSplit, AWrappedPlanIsCutLikeAnOwnOne)
{
    for (const unsigned long sizeX : {2UL, 48UL, 99UL, 128UL}) {
        std::vector<unsigned char> memory((sizeX + 2) * 300);
        const auto geometry = geometry2d(eImageBufferType::UInt8, sizeX, 300);
        const auto wrap = [&] { return image::wrapImage(*geometry, memory.data(), {sizeX + 2, 0, 0, 0}, nullptr); };
        const std::vector<StripSeen> wrapped = stripsOf(wrap(), wrap(), 500);
        const std::vector<StripSeen> own = stripsOf(createImage(*geometry), createImage(*geometry), 500);
        ASSERT_EQ(wrapped.size(), own.size()) << sizeX;
        EXPECT_GT(own.size(), 1u) << sizeX;
        for (unsigned long i = 0; i < own.size(); ++i) {
            EXPECT_EQ(wrapped[i].start, own[i].start);
            EXPECT_EQ(wrapped[i].size, own[i].size);
        }
    }
}

} // namespace
} // namespace orlix::imaproc::test
