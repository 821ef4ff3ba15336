// Ctrl-C and its kin.
#include "Interruption.h"

#include "RunProcessor.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"
#include "orlix/support/TestImages.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <iostream>
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

bool waitForTemporaryFile(const TemporaryFolder& folder)
{
    for (int i = 0; i < 12000; ++i) {
        for (const std::string& name : folder.getNames()) {
            if (name.starts_with(".orlix-")) {
                return true;
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

class InterruptedWriteTest : public ::testing::TestWithParam<int>
{};

TEST_P(InterruptedWriteTest, LeavesNothing)
{
    const TemporaryFolder folder;
    writeSlowInput(folder / "in.tif", 48);
    writeText(folder / "out.tif", "old");
    Program program({"copy", folder / "in.tif", folder / "out.tif", "--compression", "lzma"});
    ASSERT_TRUE(waitForTemporaryFile(folder));
    program.signal(GetParam());
    const ProgramResult result = program.finish();
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "orlix: interrupted\n");
    EXPECT_EQ(contentOf(folder / "out.tif"), "old");
    EXPECT_EQ(folder.getNames(), (NameSet{"in.tif", "out.tif"}));
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

TEST(InterruptionTest, EndsAtOnceWhereNothingIsToTidyUp)
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

/// Interrupts before the tenth element that it runs, and remembers how many elements were asked for.
class InterruptingExecutor final : public core::BaseExecutor
{
public:
    unsigned long getNbThreads() const override { return 1; }
    void forEach(unsigned long nbElements, unsigned long, const core::ElementBody& body) override
    {
        for (unsigned long element = 0; element < nbElements; ++element) {
            if (element == 9) {
                std::raise(SIGINT);
            }
            body(element);
        }
    }
    void post(boost::function<void()> task) override { task(); }
};

/// 0 where a copy of 30 plans, interrupted before the tenth, ended as it should.
int interruptCopy()
{
    forgetSignals();
    cli::handleSignals("at once\n");
    core::setExecutor(boost::make_shared<InterruptingExecutor>());
    const ImagePtr in = makeNoise(*image::geometry3d(eImageBufferType::UInt8, 16, 16, 30));
    const ImagePtr out = image::createImage(in->getGeometry());
    for (unsigned long z = 0; z < 30; ++z) {
        std::memset(image::planData<unsigned char>(*out, z, 0, 0), 7, 256);
    }
    const cli::CommonOptions options;
    cli::ProgressLine progress(false);
    cli::CommandContext context{options, std::cout, std::cerr, progress};
    const cli::InterruptibleWork work;
    try {
        using namespace imaproc;
        cli::runProcessor<util::CopyImgLvl1>("copy", context, processor::with<attr::InImg>(in),
                                             processor::with<attr::OutImg>(out));
        return 1;
    } catch (const cli::Interrupted&) {
    }
    const auto isCopied = [&](unsigned long z) {
        return std::memcmp(in->accessRow(0, z, 0, 0), out->accessRow(0, z, 0, 0), 256) == 0;
    };
    for (unsigned long z = 0; z < 30; ++z) {
        const bool bAsItWas = *image::planData<unsigned char>(*out, z, 0, 0) == 7;
        if (z < 9 ? !isCopied(z) : (isCopied(z) || !bAsItWas)) {
            return 2;
        }
    }
    return 0;
}

TEST(InterruptionTest, EndsACopyAtTheNextStrip)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::_Exit(interruptCopy()), ::testing::ExitedWithCode(0), "^$");
}

} // namespace
} // namespace orlix::test
