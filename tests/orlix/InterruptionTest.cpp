// Ctrl-C and its kin.
#include "Interruption.h"

#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <thread>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using NameSet = std::set<std::string>;

/// A stack of plans of noise, which LZMA takes seconds to compress.
void writeSlowInput(const std::string& file, unsigned long nbPlans, const image::io::WriteOptions& options = {})
{
    image::io::writeImage(file, makeNoise(*image::geometry3d(eImageBufferType::UInt8, 512, 512, nbPlans)), options);
}

/// A file whose name begins so; false where none came for a minute.
bool waitForName(const TemporaryFolder& folder, const std::string& start)
{
    for (int i = 0; i < 12000; ++i) {
        for (const std::string& name : folder.getNames()) {
            if (name.starts_with(start)) {
                return true;
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

bool waitForTemporaryFile(const TemporaryFolder& folder)
{
    return waitForName(folder, ".orlix-");
}

class InterruptedWriteTest : public ::testing::TestWithParam<int>
{
protected:
    /// Sends the signal while the program writes `out.tif` with LZMA and further options.
    static void interruptWrite(const TemporaryFolder& folder, const std::vector<std::string>& options = {})
    {
        writeText(folder / "out.tif", "old");
        std::vector<std::string> arguments{"copy", folder / "in.tif", folder / "out.tif", "--compression", "lzma"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        Program program(arguments);
        ASSERT_TRUE(waitForTemporaryFile(folder));
        program.signal(GetParam());
        const ProgramResult result = program.finish();
        EXPECT_EQ(result.exitCode, 130);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "orlix: interrupted\n");
        EXPECT_EQ(contentOf(folder / "out.tif"), "old");
        EXPECT_EQ(folder.getNames(), (NameSet{"in.tif", "out.tif"}));
    }
};

TEST_P(InterruptedWriteTest, LeavesNothing)
{
    const TemporaryFolder folder;
    writeSlowInput(folder / "in.tif", 48);
    interruptWrite(folder);
}

// The encoder has the tile for minutes, longer than the test waits for the program.
TEST_P(InterruptedWriteTest, DoesNotWaitForATile)
{
    const TemporaryFolder folder;
    image::io::WriteOptions fast;
    fast.bSync = false;
    image::io::writeImage(folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::UInt16, 8192, 8192)), fast);
    interruptWrite(folder, {"--tile-size", "8192"});
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptedWriteTest, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST(InterruptionTest, CtrlCEndsReading)
{
    const TemporaryFolder folder;
    image::io::WriteOptions slow;
    slow.compression = image::io::eTiffCompression::eLzma;
    writeSlowInput(folder / "in.tif", 12, slow);
    ProgramResult result{};
    const auto cameTooLate = [&] { return result.exitCode != 130 || result.out.find("copy [") != std::string::npos; };
    for (int attempt = 0; attempt < 20 && cameTooLate(); ++attempt) { // on a busy machine reading may win
        std::remove((folder / "out.tif").c_str());
        Program program({"copy", folder / "in.tif", folder / "out.tif"}, Program::eStreams::terminal);
        ASSERT_TRUE(program.waitForText("read ["));
        program.type("\x03");
        result = program.finish();
    }
    EXPECT_EQ(result.exitCode, 130);
    const std::string line = "\rorlix: interrupted\r\n"; // a terminal starts a new line with both
    ASSERT_GE(result.out.size(), line.size());
    EXPECT_EQ(result.out.substr(result.out.size() - line.size()), line);
    EXPECT_EQ(result.out.find("copy ["), std::string::npos);
    EXPECT_EQ(folder.getNames(), NameSet{"in.tif"});
}

// The largest and the mean difference are what is left to do once the picture is there.
TEST(InterruptionTest, CtrlCEndsStatistics)
{
    const TemporaryFolder folder;
    const ImagePtr first = makeNoise(*image::geometry3d(eImageBufferType::UInt8, 300, 300, 1600));
    const ImagePtr second = image::createImage(first->getGeometry());
    image::io::writeImage(folder / "first.tif", first);
    image::io::writeImage(folder / "second.tif", second);
    ProgramResult result{};
    for (int attempt = 0; attempt < 20 && result.exitCode != 130; ++attempt) { // on a busy machine they may win
        std::remove((folder / "picture.png").c_str());
        Program program({"compare", folder / "first.tif", folder / "second.tif", "--picture", folder / "picture.png"},
                        Program::eStreams::terminal);
        ASSERT_TRUE(waitForName(folder, "picture.png"));
        program.type("\x03");
        result = program.finish();
    }
    EXPECT_EQ(result.exitCode, 130);
    const std::string wiped = " \rorlix: interrupted\r\n";
    ASSERT_GE(result.out.size(), wiped.size());
    EXPECT_EQ(result.out.substr(result.out.size() - wiped.size()), wiped);
    EXPECT_EQ(result.out.find("differ"), std::string::npos);
}

TEST(InterruptionTest, IgnoredSignalStaysIgnored)
{
    const TemporaryFolder folder;
    writeSlowInput(folder / "in.tif", 4);
    Program program({"copy", folder / "in.tif", folder / "out.tif", "--compression", "lzma"}, Program::eStreams::pipes,
                    [] { std::signal(SIGHUP, SIG_IGN); });
    ASSERT_TRUE(waitForTemporaryFile(folder));
    program.signal(SIGHUP);
    EXPECT_EQ(program.finish().exitCode, 0);
    EXPECT_EQ(folder.getNames(), (NameSet{"in.tif", "out.tif"}));
}

/// Signals that this process ignores and blocks while the object lives, as one does that runs in the background.
class Background
{
public:
    explicit Background(const std::vector<int>& signals)
    {
        sigset_t set;
        ::sigemptyset(&set);
        for (const int number : signals) {
            m_handlers.emplace_back(number, std::signal(number, SIG_IGN));
            ::sigaddset(&set, number);
        }
        ::pthread_sigmask(SIG_BLOCK, &set, &m_mask);
    }
    ~Background()
    {
        ::pthread_sigmask(SIG_SETMASK, &m_mask, nullptr);
        for (const auto& [number, handler] : m_handlers) {
            std::signal(number, handler);
        }
    }
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

private:
    std::vector<std::pair<int, void (*)(int)>> m_handlers;
    sigset_t m_mask{};
};

TEST(InterruptionTest, TestsThatRunInTheBackgroundSeeIt)
{
    const TemporaryFolder folder;
    writeSlowInput(folder / "in.tif", 48);
    for (const int number : {SIGINT, SIGHUP, SIGTERM}) {
        const Background background({SIGINT, SIGHUP, SIGTERM});
        Program program({"copy", folder / "in.tif", folder / "out.tif", "--compression", "lzma"});
        ASSERT_TRUE(waitForTemporaryFile(folder));
        program.signal(number);
        EXPECT_EQ(program.finish().exitCode, 130) << number;
        EXPECT_EQ(folder.getNames(), NameSet{"in.tif"});
    }
}

TEST(InterruptionTest, EndsWithTheLine)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            forgetSignals();
            cli::handleSignals("the line\n");
            std::raise(SIGTERM);
            std::_Exit(1);
        },
        ::testing::ExitedWithCode(130), "^the line\n$");
}

} // namespace
} // namespace orlix::test
