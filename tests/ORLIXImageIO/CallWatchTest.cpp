// Reading and writing of files under a call watch.
#include "ORLIX/ORLIXCore/CallWatch.h"

#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"
#include "ORLIXImageIO/TestFolder.h"
#include "support/Images.h"
#include "support/SameImages.h"

#include <functional>

namespace orlix::image::io::test {
namespace {

using core::CallWatch;
using core::Progress;

MessageNumber numberThrown(const std::function<void()>& call)
{
    try {
        call();
    } catch (const BaseException& exception) {
        return exception.getMessageNumber();
    }
    return {};
}

const MessageNumber g_readingStopped = messageNumber<eORLIXImageIOMessage>(eORLIXImageIOMessage::eReadingStopped);
const MessageNumber g_writingStopped = messageNumber<eORLIXImageIOMessage>(eORLIXImageIOMessage::eWritingStopped);

struct WatchedFiles : ::testing::TestWithParam<std::string>
{
    TestFolder m_folder;
    boost::filesystem::path m_file = m_folder / ("image" + GetParam());
    ImagePtr m_image = orlix::testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 300, 400));
};

TEST_P(WatchedFiles, TellTheirPlans)
{
    Progress last;
    unsigned long nbCalls = 0;
    {
        const CallWatch watch([&](const Progress& progress) {
            last = progress;
            ++nbCalls;
        });
        writeImage(m_file, m_image);
        EXPECT_GT(nbCalls, 0u);
        EXPECT_EQ(last.known, 1u);
        EXPECT_EQ(last.done, 1u);
        last = {};
        EXPECT_TRUE(orlix::testing::sameImages(*readImage(m_file), *m_image));
        EXPECT_EQ(last.known, 1u);
        EXPECT_EQ(last.done, 1u);
    }
    const unsigned long before = nbCalls;
    readImage(m_file);
    EXPECT_EQ(nbCalls, before);
}

TEST_P(WatchedFiles, AreNeitherReadNorWrittenOnceCancelled)
{
    writeImage(m_file, m_image);
    const boost::filesystem::path other = m_folder / ("other" + GetParam());
    CallWatch watch;
    watch.requestCancellation();
    EXPECT_EQ(numberThrown([&] { readImage(m_file); }), g_readingStopped);
    EXPECT_EQ(numberThrown([&] { writeImage(other, m_image); }), g_writingStopped);
    EXPECT_FALSE(boost::filesystem::exists(other));
}

TEST_P(WatchedFiles, EndWhereTheyAreCancelledMeanwhile)
{
    writeImage(m_file, m_image);
    CallWatch* asked = nullptr;
    CallWatch watch([&](const Progress&) { asked->requestCancellation(); });
    asked = &watch;
    EXPECT_EQ(numberThrown([&] { readImage(m_file); }), g_readingStopped);
}

TEST_P(WatchedFiles, StillAskTheirOwnFunction)
{
    unsigned long nbWatched = 0, nbAsked = 0;
    const CallWatch watch([&](const Progress&) { ++nbWatched; });
    WriteOptions options;
    options.progress = [&](unsigned long, unsigned long) {
        ++nbAsked;
        return true;
    };
    writeImage(m_file, m_image, options);
    EXPECT_GT(nbAsked, 0u);
    EXPECT_EQ(nbAsked, nbWatched);
    options.progress = [](unsigned long, unsigned long) { return false; };
    EXPECT_EQ(numberThrown([&] { writeImage(m_file, m_image, options); }), g_writingStopped);
}

INSTANTIATE_TEST_SUITE_P(Formats, WatchedFiles, ::testing::Values(".tif", ".png"));

} // namespace
} // namespace orlix::image::io::test
