// Every function of the library under a call watch: told of its progress, and ended by it.
#include "ORLIX/ORLIXCore/CallWatch.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPLUtility/ImageCalls.h"
#include "support/Images.h"

#include <thread>

namespace orlix::imaproc::util {
namespace {

using core::CallWatch;
using core::Progress;
using orlix::testing::bytesOf;
using orlix::testing::makeRandom;

test::Images makeImages(const test::ImageCall& call)
{
    test::Images images;
    for (const image::BaseImageGeometry& geometry : call.geometries) {
        images.push_back(makeRandom(geometry, images.size() + 1));
    }
    return images;
}

std::vector<std::vector<std::byte>> bytesOfAll(const test::Images& images)
{
    std::vector<std::vector<std::byte>> bytes;
    for (const ImagePtr& image : images) {
        bytes.push_back(bytesOf(*image));
    }
    return bytes;
}

struct Seen
{
    unsigned long nbCalls = 0;
    Progress last;

    core::ProgressObserver observer()
    {
        return [this](const Progress& progress) {
            ++nbCalls;
            last = progress;
        };
    }
};

/// The number of what the call throws.
MessageNumber numberThrown(const test::ImageCall& call, const test::Images& images)
{
    try {
        call.run(images);
    } catch (const BaseException& exception) {
        return exception.getMessageNumber();
    }
    return {};
}

const MessageNumber g_cancelled = messageNumber<core::eORLIXCoreMessage>(core::eORLIXCoreMessage::eCancelled);

class WatchedCalls : public ::testing::TestWithParam<test::ImageCall>
{
protected:
    /// Their results are others in each call.
    static bool isRandom() { return GetParam().name.find("andom") != std::string::npos; }
};

TEST_P(WatchedCalls, tellAllOfTheirProgressAndDoTheSame)
{
    const test::Images unwatched = makeImages(GetParam());
    GetParam().run(unwatched);
    const test::Images images = makeImages(GetParam());
    Seen seen;
    {
        const CallWatch watch(seen.observer());
        GetParam().run(images);
    }
    EXPECT_GT(seen.last.known, 0u);
    EXPECT_EQ(seen.last.done, seen.last.known);
    if (!isRandom()) {
        EXPECT_EQ(bytesOfAll(images), bytesOfAll(unwatched));
    }
    const unsigned long nbCalls = seen.nbCalls;
    GetParam().run(makeImages(GetParam()));
    EXPECT_EQ(seen.nbCalls, nbCalls) << "the watch had ended";
}

TEST_P(WatchedCalls, endBeforeTheyBeginOnceCancelled)
{
    const test::Images images = makeImages(GetParam());
    Seen seen;
    CallWatch watch(seen.observer());
    watch.requestCancellation();
    EXPECT_EQ(numberThrown(GetParam(), images), g_cancelled);
    EXPECT_EQ(bytesOfAll(images), bytesOfAll(makeImages(GetParam())));
    EXPECT_EQ(seen.nbCalls, 0u);
}

TEST_P(WatchedCalls, endAtTheNextElementWhereTheyAreCancelledMeanwhile)
{
    const test::Images images = makeImages(GetParam());
    CallWatch* asked = nullptr;
    CallWatch watch([&](const Progress& progress) {
        if (progress.done == 0) {
            asked->requestCancellation();
        }
    });
    asked = &watch;
    EXPECT_EQ(numberThrown(GetParam(), images), g_cancelled);
    if (GetParam().name != "appendSeqImg in place") { // has grown by then
        EXPECT_EQ(bytesOfAll(images), bytesOfAll(makeImages(GetParam())));
    }
}

TEST_P(WatchedCalls, heedTheInnermostWatch)
{
    Seen outside, inside;
    CallWatch outer(outside.observer());
    outer.requestCancellation();
    {
        const CallWatch inner(inside.observer());
        EXPECT_NO_THROW(GetParam().run(makeImages(GetParam())));
    }
    EXPECT_EQ(inside.last.done, inside.last.known);
    EXPECT_GT(inside.nbCalls, 0u);
    EXPECT_EQ(outside.nbCalls, 0u);
    EXPECT_EQ(numberThrown(GetParam(), makeImages(GetParam())), g_cancelled);
}

TEST_P(WatchedCalls, heedTheWatchOfTheirThread)
{
    Seen cancelled, watched;
    std::thread other([&] {
        CallWatch watch(cancelled.observer());
        watch.requestCancellation();
        EXPECT_EQ(numberThrown(GetParam(), makeImages(GetParam())), g_cancelled);
    });
    {
        const CallWatch watch(watched.observer());
        EXPECT_NO_THROW(GetParam().run(makeImages(GetParam())));
    }
    other.join();
    EXPECT_EQ(cancelled.nbCalls, 0u);
    EXPECT_GT(watched.nbCalls, 0u);
    EXPECT_EQ(watched.last.done, watched.last.known);
}

std::vector<test::ImageCall> makeSynchronousCalls()
{
    std::vector<test::ImageCall> calls = test::makeImageCalls();
    std::erase_if(calls, [](const test::ImageCall& call) { return call.name.find("_async") != std::string::npos; });
    return calls;
}

INSTANTIATE_TEST_SUITE_P(EveryFunction, WatchedCalls, ::testing::ValuesIn(makeSynchronousCalls()));

} // namespace
} // namespace orlix::imaproc::util
