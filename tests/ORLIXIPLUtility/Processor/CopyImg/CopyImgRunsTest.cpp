// How copies run: what observers see, cancellation, numbers of threads, levels by themselves, inputs that are only
// read.
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/CopyImg/CopyChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/Images.h"
#include "support/SameImages.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include <sys/mman.h>

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::makeInitialised;
using testing::makeRandom;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

boost::shared_ptr<CopyImgLvl1> makeCopy(const ImageConstPtr& in, const ImagePtr& out)
{
    const auto copy = makeInitialised<CopyImgLvl1>();
    copy->set<attr::InImg>(in);
    copy->set<attr::OutImg>(out);
    return copy;
}

TEST(CopyImgRunsTest, anObserverSeesEveryPlanAndStrip)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 20, 10, 3, 2, 2));
    const auto copy = makeCopy(in, createImage(in->getGeometry()));
    core::Progress last;
    copy->setProgressObserver([&](const core::Progress& progress) { last = progress; });
    EXPECT_TRUE(copy->run(g_sync));
    EXPECT_EQ(last.known, 24U) << "12 plans of one strip each";
    EXPECT_EQ(last.done, 24U);
}

TEST(CopyImgRunsTest, ontoItselfNothingIsDispatched)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 20, 10, 3, 2, 2));
    const auto copy = makeCopy(in, in);
    unsigned long nbCalls = 0;
    copy->setProgressObserver([&](const core::Progress&) { ++nbCalls; });
    EXPECT_TRUE(copy->run(g_sync));
    EXPECT_EQ(nbCalls, 0U);
}

TEST(CopyImgRunsTest, cancellationEndsItAtTheNextStrip)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 64, 64, 200, 1, 1));
    const ImagePtr out = createImage(in->getGeometry());
    const auto copy = makeCopy(in, out);
    core::Progress last;
    copy->setProgressObserver([&](const core::Progress& progress) {
        last = progress;
        if (progress.done == 10) {
            std::thread([&] { copy->requestCancellation(); }).join();
        }
    });
    const ProcessingResult<bool> result = copy->run(g_sync);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), formatMessage<core::eORLIXCoreMessage>(core::eORLIXCoreMessage::eCancelled));
    EXPECT_LT(last.done, 10 + 3 * core::accessExecutor().getNbThreads());
    copy->setProgressObserver({});
    EXPECT_TRUE(copy->run(g_sync)) << "it can be run again";
    EXPECT_TRUE(testing::sameImages(*in, *out));
}

TEST(CopyImgRunsTest, everyNumberOfThreadsGivesTheSameBytes)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 517, 700, 3, 1, 1));
    const auto expectCopy = [&](const boost::shared_ptr<core::BaseExecutor>& executor) {
        const testing::ScopedExecutor scope(executor);
        EXPECT_TRUE(testing::sameImages(*in, *copied(in))) << executor->getNbThreads() << " threads";
    };
    for (unsigned long nbThreads = 1; nbThreads <= 64; nbThreads = nbThreads < 8 ? nbThreads + 1 : 2 * nbThreads) {
        expectCopy(core::makePlainThreadExecutor(nbThreads));
        if (testing::g_bTbbIsVisible) {
            expectCopy(core::makeTbbExecutor(nbThreads));
        }
    }
}

TEST(CopyImgRunsTest, aFailedAsynchronousRunHasNoOutput)
{
    const boost::shared_ptr<CopyImgLvl1> failed = copyImg_async(ImageConstPtr());
    EXPECT_FALSE(failed->wait());
    EXPECT_EQ(getAsyncProcessorOutput(failed), nullptr);
}

TEST(CopyImgRunsTest, aDroppedProcessorLetsGoOfItsImages)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Real32, 300, 200));
    static_cast<void>(copyImg_async(in));
    for (int i = 0; i < 10000 && in.use_count() != 1; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(in.use_count(), 1);
    static_cast<void>(copyImg(in));
    EXPECT_EQ(in.use_count(), 1) << "idle processors hold no image";
}

TEST(CopyImgRunsTest, theInputIsOnlyRead)
{
    constexpr unsigned long sizeX = 61;
    constexpr unsigned long sizeY = 60;
    const unsigned long nbBytes = sizeX * sizeY;
    void* const page = mmap(nullptr, nbBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(page, MAP_FAILED);
    for (const unsigned long gap : {0UL, 1UL}) {
        const ImagePtr in =
            image::wrapImage(*geometry2d(eImageBufferType::UInt8, sizeX - gap, sizeY), page, {sizeX, 0, 0, 0}, nullptr);
        testing::fillRandom(*in, gap);
        ASSERT_EQ(mprotect(page, nbBytes, PROT_READ), 0);
        EXPECT_TRUE(testing::sameImages(*in, *copied(in)));
        ASSERT_EQ(mprotect(page, nbBytes, PROT_READ | PROT_WRITE), 0);
    }
    munmap(page, nbBytes);
}

TEST(CopyImgRunsTest, axesMayLieInMemoryInAnyOrder)
{
    // Lines of the two channels take turns, and so do the time steps of each.
    const auto geometry = geometry5d(eImageBufferType::UInt16, 70, 30, 2, 2, 2);
    std::vector<unsigned short> memory(geometry->getNbPixels());
    const ImagePtr turns = image::wrapImage(*geometry, memory.data(), {280, 280 * 30, 70, 140}, nullptr);
    const ImagePtr in = makeRandom(*geometry);
    const testing::ScopedExecutor scope(core::makePlainThreadExecutor(4));
    copyImg(in, turns);
    EXPECT_TRUE(testing::sameImages(*in, *turns));
    EXPECT_TRUE(testing::sameImages(*in, *copied(turns)));
}

TEST(CopyImgRunsTest, levelTwoCopiesAPlan)
{
    const auto level = makeInitialised<CopyImgLvl2>();
    EXPECT_EQ(level->getAttributeNameColl(), (std::vector<std::string>{"InSubImg2d", "OutImg"}));
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Int16, 100, 90));
    const ImagePtr out = createImage(in->getGeometry());
    level->set<attr::InSubImg2d>(in);
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "CopyImgLvl2: attribute OutImg has not been set: set OutImg before the run")
        << "no initializer at this level";
    level->set<attr::OutImg>(out);
    EXPECT_TRUE(level->run(g_sync));
    EXPECT_TRUE(testing::sameImages(*in, *out));
    level->set<attr::OutImg>(createImage(*geometry2d(eImageBufferType::Int16, 100, 91)));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "OutImg is 100x91x1x1x1 Int16, InSubImg2d is 100x90x1x1x1 Int16: sizes and "
              "element types have to be the same");
}

TEST(CopyImgRunsTest, levelThreeCopiesAStrip)
{
    const auto level = makeInitialised<CopyImgLvl3>();
    EXPECT_EQ(level->getAttributeNameColl(), (std::vector<std::string>{"InYStrip2d", "OutYStrip2d"}));
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 64, 20));
    const testing::WatchedImage out(in->getGeometry(), {});
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 3, 5));
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 10, 5));
    EXPECT_TRUE(level->run(g_sync));
    std::vector<std::byte> expected(64 * 20);
    const std::vector<std::byte> source = testing::bytesOf(*in);
    std::copy_n(source.begin() + 3 * 64, 5 * 64, expected.begin() + 10 * 64);
    EXPECT_EQ(testing::bytesOf(*out.get()), expected);
    EXPECT_TRUE(out.isOutsideIntact());

    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 10, 6));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "The strip of OutYStrip2d is 64x6 UInt8, that of InYStrip2d is 64x5 UInt8: "
              "sizes and element types have to be the same");
}

template <class TProcessor>
void expectVersionsUpToOne()
{
    const auto read = [](const char* version) {
        TextIArchive archive;
        EXPECT_TRUE(archive.loadFromString("<orlix_archive format=\"1\"><section name=\"" + TProcessor::getTypeName() +
                                           "\"><uint32 name=\"version\" value=\"" + version +
                                           "\"/></section></orlix_archive>"));
        return TProcessor().read(archive).getValue();
    };
    EXPECT_TRUE(read("0"));
    EXPECT_TRUE(read("1"));
    EXPECT_THROW(read("2"), ORLIXSerializationException);
}

TEST(CopyImgRunsTest, archivesOfANewerVersionAreRefused)
{
    expectVersionsUpToOne<CopyImgLvl1>();
    expectVersionsUpToOne<CopyImgLvl2>();
    expectVersionsUpToOne<CopyImgLvl3>();
}

} // namespace
} // namespace orlix::imaproc::util
