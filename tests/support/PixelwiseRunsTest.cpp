// How pixelwise operators run: on every executor, asynchronously, watched, cancelled, and on images that they refuse.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "support/Executors.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"

#include <chrono>
#include <thread>

namespace orlix::testing {
namespace {

using image::geometry5d;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

/// All kinds, and every small number of threads.
std::vector<NamedExecutor> executorsToTry()
{
    std::vector<NamedExecutor> executors = makeAllExecutors();
    for (unsigned long nbThreads = 1; nbThreads <= 64; nbThreads = nbThreads < 8 ? nbThreads + 1 : 2 * nbThreads) {
        executors.push_back({std::to_string(nbThreads) + " threads", core::makePlainThreadExecutor(nbThreads)});
    }
    return executors;
}

/// One element, taken for an image of 2^60: to read it would end the test.
ImagePtr hugeImage(const image::eImageBufferType& type)
{
    static unsigned long element = 0;
    return image::wrapImage(*geometry5d(type, 1UL << 20, 1UL << 20, 1UL << 20, 1, 1), &element,
                            {1UL << 20, 1UL << 40, 1UL << 60, 1UL << 60}, nullptr);
}

TEST_P(PixelwiseTest, everyExecutorGivesTheSameBytes)
{
    const ElementTypes& types = GetParam().types.back();
    const auto [in, first] = makePair(types, 701, 497, 2, 1, 2);
    expectRight(in, first);
    for (const NamedExecutor& named : executorsToTry()) {
        const ScopedExecutor scope(named.executor);
        const ImagePtr out = makeRandom(first->getGeometry(), 99);
        EXPECT_EQ(failureOf(in, out), "") << named.name;
        EXPECT_TRUE(sameImages(*first, *out)) << named.name;
        if (GetParam().make) {
            EXPECT_TRUE(sameImages(*first, *GetParam().make(in, types.out))) << named.name;
        }
    }
}

TEST_P(PixelwiseTest, anObserverSeesEveryPlanAndStrip)
{
    const auto [in, out] = makePair(GetParam().types.front(), 20, 10, 3, 2, 2);
    const auto processor = GetParam().prepare(in, out);
    core::Progress last;
    processor->setProgressObserver([&](const core::Progress& progress) { last = progress; });
    EXPECT_TRUE(processor->run(g_sync));
    EXPECT_EQ(last.known, 24U) << "12 plans of one strip each";
    EXPECT_EQ(last.done, 24U);
    EXPECT_TRUE(GetParam().isRight(*in, *out));
}

TEST_P(PixelwiseTest, cancellationEndsItAtTheNextStrip)
{
    const auto [in, out] = makePair(GetParam().types.front(), 64, 64, 200);
    const auto processor = GetParam().prepare(in, out);
    core::Progress last;
    processor->setProgressObserver([&](const core::Progress& progress) {
        last = progress;
        if (progress.done == 10) {
            std::thread([&] { processor->requestCancellation(); }).join();
        }
    });
    const ProcessingResult<bool> result = processor->run(g_sync);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), formatMessage<core::eORLIXCoreMessage>(core::eORLIXCoreMessage::eCancelled));
    EXPECT_LT(last.done, 10 + 3 * core::accessExecutor().getNbThreads());
    processor->setProgressObserver({});
    EXPECT_TRUE(processor->run(g_sync)) << "it can be run again";
    EXPECT_TRUE(GetParam().isRight(*in, *out));
}

TEST_P(PixelwiseTest, aProcessorRunsAgainOnOtherPixels)
{
    const auto [in, out] = makePair(GetParam().types.front(), 70, 30);
    const auto processor = GetParam().prepare(in, out);
    for (const unsigned long seed : {1UL, 2UL}) {
        fillRandom(*in, seed);
        fillRandom(*out, seed + 7);
        EXPECT_TRUE(processor->run(g_sync));
        EXPECT_TRUE(GetParam().isRight(*in, *out));
    }
}

TEST_P(PixelwiseTest, startedAndWaitedFor)
{
    for (const ElementTypes& types : GetParam().types) {
        const auto [in, out] = makePair(types, 300, 200);
        const auto running = GetParam().start(in, out);
        EXPECT_TRUE(running->wait());
        EXPECT_TRUE(running->isFinished());
        EXPECT_TRUE(GetParam().isRight(*in, *out));
    }
}

TEST_P(PixelwiseTest, aDroppedPointerDoesNotEndTheRun)
{
    const auto [in, out] = makePair(GetParam().types.front(), 512, 512);
    boost::weak_ptr<processor::BaseProcessor> running = GetParam().start(in, out);
    while (const boost::shared_ptr<processor::BaseProcessor> held = running.lock()) {
        static_cast<void>(held->wait());
    }
    EXPECT_TRUE(GetParam().isRight(*in, *out));
}

TEST_P(PixelwiseTest, nobodyKeepsTheImages)
{
    const auto [in, out] = makePair(GetParam().types.front(), 300, 200);
    static_cast<void>(GetParam().start(in, out));
    for (int i = 0; i < 10000 && (in.use_count() != 1 || out.use_count() != 1); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(in.use_count(), 1);
    EXPECT_EQ(out.use_count(), 1);
    EXPECT_EQ(failureOf(in, out), "");
    EXPECT_EQ(in.use_count(), 1) << "idle processors hold no image";
    EXPECT_EQ(out.use_count(), 1);
}

TEST_P(PixelwiseTest, nullImagesAreRefused)
{
    const auto [in, out] = makePair(GetParam().types.front(), 4, 4);
    const auto text = [](const std::string& attribute) {
        return GetParam().name + ": attribute " + attribute + " holds a null pointer: give it an object that exists";
    };
    EXPECT_EQ(failureOf(in, {}), text(GetParam().output));
    EXPECT_EQ(GetParam().start(in, {})->wait().getMessage(), text(GetParam().output));
    if (!GetParam().input.empty()) {
        EXPECT_EQ(failureOf({}, out), text(GetParam().input));
        EXPECT_EQ(failureOf({}, {}), text(GetParam().input));
        EXPECT_EQ(GetParam().start({}, out)->wait().getMessage(), text(GetParam().input));
    }
    EXPECT_EQ(failureOf(in, out), "") << "the next call works";
}

TEST_P(PixelwiseTest, otherSizesAreRefusedAndNothingIsWritten)
{
    if (GetParam().input.empty()) {
        return;
    }
    for (const ElementTypes& types : GetParam().types) {
        const ImagePtr in = makeRandom(*geometry5d(types.in, 8, 7, 3, 2, 2));
        for (int axis = 0; axis < 5; ++axis) {
            unsigned long sizes[] = {8, 7, 3, 2, 2};
            sizes[axis] += axis % 2 == 0 ? 1 : -1;
            const ImagePtr out =
                makeRandom(*geometry5d(types.out, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]), 3);
            const ImagePtr before = plainCopy(*out);
            EXPECT_EQ(failureOf(in, out), GetParam().output + " is " + out->getGeometry().toString() + ", " +
                                              GetParam().input + " is " + in->getGeometry().toString() + ": " +
                                              GetParam().mismatch);
            EXPECT_TRUE(sameImages(*before, *out));
        }
        const auto [huge, out] = std::pair{hugeImage(types.in), makeRandom(*geometry5d(types.out, 8, 7, 3, 2, 2))};
        EXPECT_EQ(failureOf(huge, out), GetParam().output + " is " + out->getGeometry().toString() + ", " +
                                            GetParam().input + " is " + huge->getGeometry().toString() + ": " +
                                            GetParam().mismatch)
            << "and nothing is read";
    }
}

TEST_P(PixelwiseTest, anOutputThatCannotBeHadIsAnError)
{
    if (GetParam().make) {
        const ImagePtr in = hugeImage(image::eImageBufferType::UInt8);
        EXPECT_THROW(static_cast<void>(GetParam().make(in, GetParam().types.front().out)), std::exception);
        EXPECT_EQ(in.use_count(), 1) << "nothing of the call is kept";
    }
}

} // namespace
} // namespace orlix::testing
