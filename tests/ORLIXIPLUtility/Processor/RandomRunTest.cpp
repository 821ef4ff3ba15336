// Seeds, numbers of runs and parts: what the bytes of random images depend on, and what they don't.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPLUtility/Processor/RandomImages.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/SameImages.h"

#include <set>
#include <thread>

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::sameImages;

/// Both operators, each on an image of any type.
struct RandomOperator
{
    const char* name;
    std::function<void(const ImagePtr& image)> fill;
    std::function<void(const ImagePtr& image, const ImagePart& part)> fillPart;
    std::function<void(const ImagePtr& image, unsigned long line, unsigned long nbLines, const RandomRun& run)>
        fillStrip;
    std::function<void(eInstructionSet::domain set)> force;
    std::function<void()> release;
};

template <class TLevel3, class TParameter, class TValue>
void runStrip(const TValue& value, const ImagePtr& image, unsigned long line, unsigned long nbLines,
              const RandomRun& run)
{
    const auto level = testing::makeInitialised<TLevel3>();
    level->template set<TParameter>(value);
    level->template set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*image, line, nbLines));
    level->setRandomRun(run);
    EXPECT_TRUE(level->run(core::eSynchroType::eSynchroSync));
}

const auto g_law = attr::createGaussianParameter(64, 20);

const std::vector<RandomOperator> g_operators = {
    {"randomImg", [](const ImagePtr& image) { randomImg(image); },
     [](const ImagePtr& image, const ImagePart& part) { randomImg(image, part); },
     [](const ImagePtr& image, unsigned long line, unsigned long nbLines, const RandomRun& run) {
         const auto all =
             attr::createRange(image::getMinValue(image->getBufferType()), image::getMaxValue(image->getBufferType()));
         runStrip<RandomImgLvl3, attr::InOutputRange>(all, image, line, nbLines, run);
     },
     [](eInstructionSet::domain set) { RandomImgLvl3::forceInstructionSets({set}); },
     [] { RandomImgLvl3::releaseForcedInstructionSets(); }},
    {"gaussianRandomImg", [](const ImagePtr& image) { gaussianRandomImg(g_law, image); },
     [](const ImagePtr& image, const ImagePart& part) { gaussianRandomImg(g_law, image, part); },
     [](const ImagePtr& image, unsigned long line, unsigned long nbLines, const RandomRun& run) {
         runStrip<GaussianRandomImgLvl3, attr::InGaussianParameter>(g_law, image, line, nbLines, run);
     },
     [](eInstructionSet::domain set) { GaussianRandomImgLvl3::forceInstructionSets({set}); },
     [] { GaussianRandomImgLvl3::releaseForcedInstructionSets(); }}};

class RandomRunTest : public ::testing::TestWithParam<RandomOperator>
{
protected:
    void TearDown() override { clearRandomSeed(); }

    static ImagePtr made(eImageBufferType type, unsigned long x = 61, unsigned long y = 33)
    {
        const ImagePtr image = createImage(*geometry2d(type, x, y));
        GetParam().fill(image);
        return image;
    }
    static bool isSame(const ImagePtr& left, const ImagePtr& right) { return bool(sameImages(*left, *right)); }
};

TEST_P(RandomRunTest, withoutASeedEveryRunDiffers)
{
    const ImagePtr first = made(eImageBufferType::UInt8);
    EXPECT_FALSE(isSame(first, made(eImageBufferType::UInt8)));
    const RandomRunScope scope(5);
    EXPECT_FALSE(isSame(made(eImageBufferType::UInt8), made(eImageBufferType::UInt8))) << "a number is no seed";
}

TEST_P(RandomRunTest, aSeedAndTheNumberOfTheRunTellAll)
{
    setRandomSeed(42);
    const ImagePtr run0 = made(eImageBufferType::Int16);
    const ImagePtr run1 = made(eImageBufferType::Int16);
    EXPECT_FALSE(isSame(run0, run1));
    {
        const RandomRunScope scope(0);
        EXPECT_TRUE(isSame(run0, made(eImageBufferType::Int16)));
        EXPECT_TRUE(isSame(run0, made(eImageBufferType::Int16))) << "as often as one likes";
        {
            const RandomRunScope inner(1);
            EXPECT_TRUE(isSame(run1, made(eImageBufferType::Int16)));
        }
        EXPECT_TRUE(isSame(run0, made(eImageBufferType::Int16)));
    }
    const ImagePtr run2 = made(eImageBufferType::Int16);
    setRandomSeed(43);
    EXPECT_FALSE(isSame(run0, made(eImageBufferType::Int16)));
    setRandomSeed(42);
    EXPECT_TRUE(isSame(run0, made(eImageBufferType::Int16)));
    EXPECT_TRUE(isSame(run1, made(eImageBufferType::Int16)));
    EXPECT_TRUE(isSame(run2, made(eImageBufferType::Int16)));
    clearRandomSeed();
    const RandomRunScope scope(42, 1);
    EXPECT_TRUE(isSame(run1, made(eImageBufferType::Int16))) << "a scope may bring its own seed";
    std::thread([&] {
        EXPECT_FALSE(isSame(run1, made(eImageBufferType::Int16))) << "the scope is this thread's";
    }).join();
}

TEST_P(RandomRunTest, everyPlanIsItsOwn)
{
    const RandomRunScope scope(9, 9);
    const ImagePtr image = createImage(*geometry5d(eImageBufferType::UInt8, 64, 4, 3, 3, 3));
    GetParam().fill(image);
    const std::vector<std::byte> bytes = testing::bytesOf(*image);
    std::set<std::vector<std::byte>> plans;
    for (unsigned long plan = 0; plan < 27; ++plan) {
        plans.emplace(bytes.begin() + static_cast<long>(256 * plan),
                      bytes.begin() + static_cast<long>(256 * plan + 256));
    }
    EXPECT_EQ(plans.size(), 27U);
}

TEST_P(RandomRunTest, everyStripHeightAndOrder)
{
    for (const eInstructionSet::domain set :
         {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2, eInstructionSet::eAVX512}) {
        GetParam().force(set);
        for (const eImageBufferType type :
             {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
            RandomRun run = runOfChecks();
            const ImagePtr whole = createImage(*geometry2d(type, 77, 60));
            {
                const RandomRunScope scope(run);
                GetParam().fill(whole);
            }
            for (const unsigned long height : {1UL, 2UL, 7UL, 13UL, 59UL}) {
                const ImagePtr image = createImage(*geometry2d(type, 77, 60));
                for (unsigned long end = 60; end > 0; end -= std::min(end, height)) { // from below: each may overrun
                    const unsigned long start = end - std::min(end, height);
                    const ImagePtr part = image::wrapImage(*geometry2d(type, 77, 60), image->accessRow(0, 0, 0, 0),
                                                           {77, 77 * 60, 77 * 60, 77 * 60}, nullptr);
                    GetParam().fillStrip(part, start, end - start, run);
                }
                EXPECT_TRUE(isSame(whole, image)) << height << " lines";
            }
        }
        GetParam().release();
    }
}

TEST_P(RandomRunTest, aPartIsTheCutOfTheWhole)
{
    const RandomRunScope scope(77, 1);
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr whole = createImage(*geometry5d(type, 53, 41, 3, 2, 2));
        GetParam().fill(whole);
        for (const unsigned long line : {0UL, 1UL, 17UL, 40UL}) {
            for (const PlanIndex& plan : {PlanIndex(0, 0, 0), PlanIndex(1, 1, 0), PlanIndex(2, 0, 1)}) {
                const unsigned long nbLines = std::min(20UL, 41 - line);
                const unsigned long nbPlans = std::min(2UL, 3 - plan.z);
                const ImagePtr part = createImage(*geometry5d(type, 53, nbLines, nbPlans, 1, 1));
                GetParam().fillPart(part, {plan, line, 53, 41, 3, 2, 2});
                for (unsigned long z = 0; z < nbPlans; ++z) {
                    for (unsigned long y = 0; y < nbLines; ++y) {
                        ASSERT_EQ(std::memcmp(part->accessRow(y, z, 0, 0),
                                              whole->accessRow(line + y, plan.z + z, plan.c, plan.t),
                                              53 * image::elementSize(type)),
                                  0)
                            << "line " << y << " from " << line << ", plan " << plan << " + " << z;
                    }
                }
            }
        }
    }
}

TEST_P(RandomRunTest, aPartHasToLieWithin)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 10, 10));
    const auto refusal = [&](const ImagePart& part) {
        return testing::messageOf([&] { GetParam().fillPart(image, part); });
    };
    EXPECT_EQ(refusal({{}, 0, 11, 10}), "The part has 10 pixels on axis x, the whole 11: a part has whole lines");
    EXPECT_EQ(refusal({{}, 5, 10, 12}),
              "The part has y size 10 from 5 on, the whole has 12: give a part that lies within");
    EXPECT_EQ(refusal({{7, 0, 0}, 0, 10, 10, 7}),
              "The part has z size 1 from 7 on, the whole has 7: give a part that lies within");
    EXPECT_EQ(refusal({{0, 1, 0}, 0, 10, 10}),
              "The part has c size 1 from 1 on, the whole has 1: give a part that lies within");
    EXPECT_EQ(
        refusal({{0, 0, ~0UL}, 0, 10, 10, 1, 1, ~0UL}),
        "The part has t size 1 from 18446744073709551615 on, the whole has 18446744073709551615: give a part that "
        "lies within");
    EXPECT_EQ(refusal({{0, 0, 2}, 1, 10, 11, 1, 1, 3}), "no exception");
}

TEST_P(RandomRunTest, wrappedMemoryAndManyThreadsGiveTheSame)
{
    const RandomRunScope scope(3, 0);
    const ImagePtr first = made(eImageBufferType::UInt16, 1021, 701);
    for (const unsigned long nbThreads : {1UL, 3UL, 64UL}) {
        const testing::ScopedExecutor executor(core::makePlainThreadExecutor(nbThreads));
        EXPECT_TRUE(isSame(first, made(eImageBufferType::UInt16, 1021, 701)));
        const testing::WatchedImage wrapped(*geometry2d(eImageBufferType::UInt16, 1021, 701),
                                            {testing::GuardEdge::eEnd, 5, 0});
        GetParam().fill(wrapped.get());
        EXPECT_TRUE(isSame(first, wrapped.get()));
        EXPECT_TRUE(wrapped.isOutsideIntact());
    }
}

INSTANTIATE_TEST_SUITE_P(EveryOperator, RandomRunTest, ::testing::ValuesIn(g_operators),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(RandomRunAsyncTest, keepsWhatWasInForceAtTheCall)
{
    const ImagePtr expected = createImage(*geometry2d(eImageBufferType::Int32, 300, 200));
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Int32, 300, 200));
    boost::shared_ptr<RandomImgLvl1> running;
    {
        const RandomRunScope scope(1, 2);
        randomImg(expected);
        running = randomImg_async(image);
    }
    const RandomRunScope other(3, 4); // of the thread that waits, and may do the work
    EXPECT_TRUE(running->wait());
    EXPECT_TRUE(sameImages(*expected, *image));
    EXPECT_EQ(getAsyncProcessorOutput(running), image);
}

/// Of every set and type of both operators, so that bytes never change unnoticed.
TEST(RandomBytesTest, areThoseOfEveryVersion)
{
    struct Row
    {
        eInstructionSet::domain set;
        unsigned long uniform;
        unsigned long normal;
    };
    constexpr Row rows[] = {{eInstructionSet::eNone, 0x405500E300A24FB3, 0x6A47AC10808ED324},
                            {eInstructionSet::eSSE2, 0xB3BE62534B80FC53, 0x5B4485C7124BA5EA},
                            {eInstructionSet::eAVX2, 0x6BCEB73C519FDDDA, 0xD546D8F856FE735C},
                            {eInstructionSet::eAVX512, 0xF6CF6A737E695CC6, 0x43CC8B4AE069A91D}};
    const RandomRunScope scope(2026, 11);
    for (const Row& row : rows) {
        if (!core::isAvailable(row.set)) {
            continue;
        }
        unsigned long hashes[2] = {};
        for (int i = 0; i < 2; ++i) {
            g_operators[i].force(row.set);
            for (const eImageBufferType type : image::g_allBufferTypes) {
                const ImagePtr image = createImage(*geometry5d(type, 211, 50, 2, 1, 1));
                g_operators[i].fill(image);
                hashes[i] = hashes[i] * 31 + hashOf(*image);
            }
            g_operators[i].release();
        }
        EXPECT_EQ(hashes[0], row.uniform) << core::getInstructionSetName(row.set) << std::hex << " 0x" << hashes[0];
        EXPECT_EQ(hashes[1], row.normal) << core::getInstructionSetName(row.set) << std::hex << " 0x" << hashes[1];
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
