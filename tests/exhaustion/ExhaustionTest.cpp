// Every public call survives every allocation that fails: it ends with an error or succeeds, and keeps no memory.
#include "exhaustion/FailingMemory.h"

#include "support/Sanitizers.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIO.h"

#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#ifdef ORLIX_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <string>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using namespace imaproc;
namespace fs = boost::filesystem;

/// What a call works on; made before memory ends.
struct Inputs
{
    Inputs() : folder(fs::temp_directory_path() / fs::unique_path("orlix-exhaustion-%%%%-%%%%"))
    {
        fs::create_directory(folder);
        std::memset(image::planData<unsigned char>(*small, 0, 0, 0), 1, 40 * 30);
        std::memset(image::planData<unsigned char>(*large, 0, 0, 0), 2, 1024 * 1100);
        image::io::writeImage(file("in.tif"), small);
        image::io::writeImage(file("in.png"), small);
        image::io::WriteOptions options;
        options.compression = image::io::eTiffCompression::eDeflate;
        options.bTiled = true;
        image::io::writeImage(file("tiles.tif"), small, options);
        options = {};
        options.compression = image::io::eTiffCompression::eLzma;
        image::io::writeImage(file("lzma.tif"), small, options);
    }
    ~Inputs()
    {
        boost::system::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    fs::path file(const char* name) const { return folder / name; }

    fs::path folder;
    ImagePtr small = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 40, 30));
    ImagePtr large = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 1024, 1100)); // pages of its own
    ImagePtr stack = image::createImage(*image::geometry3d(eImageBufferType::UInt8, 40, 30, 3));
    ImagePtr stackOut = image::createImage(*image::geometry3d(eImageBufferType::UInt8, 40, 30, 3));
    ImagePtr floats = image::createImage(*image::geometry2d(eImageBufferType::Real32, 40, 30));
    ImagePtr out = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 40, 30));
    boost::shared_ptr<attr::ImgComparisonTolerance> tolerance = boost::make_shared<attr::ImgComparisonTolerance>();
};

struct Call
{
    const char* name;
    void (*work)(const Inputs& in);
    /// Small blocks of C libraries that don't fail: libtiff 4.5 counts entries of its lists before it has their memory,
    /// and then walks beyond their end.
    unsigned long smallestByC = 0;
};

constexpr unsigned long g_throughTiff = 4096;

void PrintTo(const Call& call, std::ostream* out)
{
    *out << call.name;
}

template <class TProcessor>
void finish(const boost::shared_ptr<TProcessor>& processor)
{
    static_cast<void>(processor->wait());
}

template <class TProcessor>
void finishAndTake(const boost::shared_ptr<TProcessor>& processor)
{
    finish(processor);
    static_cast<void>(util::getAsyncProcessorOutput(processor));
}

void thresholdByName(const Inputs& in)
{
    const auto processor =
        processor::ProcessorFactory::getInstance().createProcessor(util::BasicThresholdImgLvl1::getTypeName());
    static_cast<void>(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    const auto threshold = boost::dynamic_pointer_cast<util::BasicThresholdImgLvl1>(processor);
    threshold->set<attr::InImg>(in.small);
    threshold->set<attr::InThresholdMin>(1.0);
    threshold->set<attr::InThresholdMax>(9.0);
    processor::executeSyncRun(processor);
    static_cast<void>(threshold->getStorage<attr::OutBinImg>());
}

void write(const Inputs& in, const char* name, const image::io::WriteOptions& options = {})
{
    image::io::writeImage(in.folder / name, in.small, options);
}

void wrap(const Inputs&)
{
    const auto owner = boost::make_shared<std::vector<unsigned char>>(40 * 30);
    static_cast<void>(image::wrapImage(*image::geometry2d(eImageBufferType::UInt8, 40, 30), owner->data(),
                                       {40, 1200, 1200, 1200}, owner));
}

const Call g_calls[] = {
    {"createImage", [](const Inputs&) { image::createImage(*image::geometry3d(eImageBufferType::UInt8, 40, 30, 3)); }},
    {"createImageLarge",
     [](const Inputs&) { image::createImage(*image::geometry2d(eImageBufferType::UInt8, 1024, 2048)); }},
    {"wrapImage", wrap},
    {"copyImg", [](const Inputs& in) { util::copyImg(in.small); }},
    {"copyImgLarge", [](const Inputs& in) { util::copyImg(in.large); }},
    {"copyImgStack", [](const Inputs& in) { util::copyImg(in.stack); }},
    {"copyImgGiven", [](const Inputs& in) { util::copyImg(in.stack, in.stackOut); }},
    {"copyImgRefused", [](const Inputs& in) { util::copyImg(in.small, in.floats); }},
    {"copyImg_async", [](const Inputs& in) { finishAndTake(util::copyImg_async(in.small)); }},
    {"copyImg_asyncGiven", [](const Inputs& in) { finishAndTake(util::copyImg_async(in.stack, in.stackOut)); }},
    {"eraseImg", [](const Inputs& in) { util::eraseImg(in.out); }},
    {"eraseImgValue", [](const Inputs& in) { util::eraseImg(in.stackOut, 3.0); }},
    {"eraseImg_async", [](const Inputs& in) { finishAndTake(util::eraseImg_async(in.out)); }},
    {"eraseImg_asyncValue", [](const Inputs& in) { finishAndTake(util::eraseImg_async(in.out, 3.0)); }},
    {"convertImg", [](const Inputs& in) { util::convertImg(in.small, eImageBufferType::Real32); }},
    {"convertImgGiven", [](const Inputs& in) { util::convertImg(in.small, in.floats); }},
    {"convertImg_async",
     [](const Inputs& in) { finishAndTake(util::convertImg_async(in.small, eImageBufferType::Real32)); }},
    {"convertImg_asyncGiven", [](const Inputs& in) { finishAndTake(util::convertImg_async(in.small, in.floats)); }},
    {"compareImg", [](const Inputs& in) { util::compareImg(in.stack, in.stackOut); }},
    {"compareImgTolerance", [](const Inputs& in) { util::compareImg(in.small, in.out, in.tolerance); }},
    {"compareImg_async", [](const Inputs& in) { finishAndTake(util::compareImg_async(in.small, in.out)); }},
    {"compareImg_asyncTolerance",
     [](const Inputs& in) { finishAndTake(util::compareImg_async(in.small, in.out, in.tolerance)); }},
    {"thresholdByName", thresholdByName},
    {"readImageTiff", [](const Inputs& in) { image::io::readImage(in.file("in.tif")); }, g_throughTiff},
    {"readImageTiles", [](const Inputs& in) { image::io::readImage(in.file("tiles.tif")); }, g_throughTiff},
    {"readImageLzma", [](const Inputs& in) { image::io::readImage(in.file("lzma.tif")); }, g_throughTiff},
    {"readImagePng", [](const Inputs& in) { image::io::readImage(in.file("in.png")); }},
    {"readImageMissing", [](const Inputs& in) { image::io::readImage(in.file("none.tif")); }},
    {"readImageInfoTiff", [](const Inputs& in) { image::io::readImageInfo(in.file("in.tif")); }, g_throughTiff},
    {"readImageInfoPng", [](const Inputs& in) { image::io::readImageInfo(in.file("in.png")); }},
    {"writeImageTiff", [](const Inputs& in) { write(in, "out.tif"); }, g_throughTiff},
    {"writeImagePng", [](const Inputs& in) { write(in, "out.png"); }},
    {"writeImageDeflate",
     [](const Inputs& in) {
         image::io::WriteOptions options;
         options.compression = image::io::eTiffCompression::eDeflate;
         write(in, "deflate.tif", options);
     },
     g_throughTiff},
    {"writeImageTiles",
     [](const Inputs& in) {
         image::io::WriteOptions options;
         options.compression = image::io::eTiffCompression::eLzw;
         options.bTiled = true;
         write(in, "lzw.tif", options);
     },
     g_throughTiff},
    {"writeImageRefused", [](const Inputs& in) { write(in, "out.bmp"); }},
};

constexpr int g_survived = 0, g_wrongException = 1, g_leftFile = 2, g_brokenAfterwards = 3, g_leak = 4;

const char* meaningOf(int status)
{
    switch (status) {
    case g_wrongException: return "threw something that is neither a BaseException nor std::bad_alloc";
    case g_leftFile: return "left a temporary file";
    case g_brokenAfterwards: return "doesn't do its work once there is memory again";
    case g_leak: return "keeps memory";
    case -SIGALRM: return "hangs";
    default: return "ended the process";
    }
}

/// Whether the call succeeded or failed is the same here; only an exception that callers don't expect is wrong.
template <class TWork>
bool survives(TWork&& work) noexcept
{
    try {
        work();
    } catch (const BaseException&) {
    } catch (const std::bad_alloc&) {
    } catch (...) {
        return false;
    }
    return true;
}

struct Round
{
    int status = g_survived;
    bool bFailed = false; ///< an allocation that was chosen has been asked for
};

Round runOnce(const Call& call, const Inputs& in, const FailingAllocations& failing)
{
    image::releasePooledMemory(); // so that large images ask for pages
    Round round;
    {
        const FailingMemory memory(failing);
        const bool bSurvived = survives([&] { call.work(in); });
        round.bFailed = memory.hasFailed();
        round.status = bSurvived ? g_survived : g_wrongException;
    }
    for (const auto& entry : fs::directory_iterator(in.folder)) {
        if (entry.path().filename().string().front() == '.') {
            round.status = g_leftFile;
        }
    }
    return round;
}

/// Does the call do again what it did before memory ended?
bool worksAgain(const Call& call, const Inputs& in)
{
    const bool bRefused = std::strstr(call.name, "Refused") || std::strstr(call.name, "Missing");
    try {
        call.work(in);
    } catch (const BaseException&) {
        return bRefused;
    }
    return !bRefused;
}

enum class eOthers { none, sleep, work };

eOthers lookAtOtherThreads()
{
    const std::string own = std::to_string(::gettid());
    eOthers others = eOthers::none;
    for (const auto& task : fs::directory_iterator("/proc/self/task")) {
        if (task.path().filename() == own) {
            continue;
        }
        std::ifstream stat((task.path() / "stat").string());
        const std::string text(std::istreambuf_iterator<char>(stat), {});
        const std::size_t nameEnd = text.rfind(')');
        if (nameEnd != std::string::npos && text.compare(nameEnd, 3, ") S") != 0) {
            return eOthers::work;
        }
        others = eOthers::sleep;
    }
    return others;
}

/// Blocks that are live once the threads that work behind the calls have nothing left to do: until then they have in
/// hand what belongs to a run that has been waited for.
long countLiveBlocksAtRest()
{
    constexpr int g_mostLooks = 10000, g_looksAtRest = 3; // a thread may fall asleep for a moment
    int nbAtRest = 0;
    for (int look = 0; look < g_mostLooks && nbAtRest < g_looksAtRest; ++look) {
        const eOthers others = lookAtOtherThreads();
        if (others == eOthers::none) {
            break;
        }
        nbAtRest = others == eOthers::sleep ? nbAtRest + 1 : 0;
        ::usleep(200);
    }
    return getNbLiveBlocks();
}

/// Grows at each of a few rounds only where something is lost in each: caches fill in the first.
bool leaks(const Call& call, const Inputs& in, const FailingAllocations& failing)
{
    constexpr int g_rounds = 4;
    long before = countLiveBlocksAtRest();
    for (int round = 0; round < g_rounds; ++round) {
        runOnce(call, in, failing);
        const long after = countLiveBlocksAtRest();
        if (after <= before) {
            return false;
        }
        before = after;
    }
    return true;
}

/// In a process of its own, so that one that ends is seen. Returns what `work` returned, or minus a signal.
template <class TWork>
int inChild(TWork&& work)
{
    std::cout << std::flush;
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(30); // for one that hangs
        ::_exit(work());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

class ExhaustionTest : public ::testing::TestWithParam<Call>
{};

/// Each allocation of a process that has called nothing before.
TEST_P(ExhaustionTest, FirstCallSurvives)
{
    const Inputs in;
    bool bFailed = true;
    for (unsigned long first = 1; bFailed; ++first) {
        constexpr int g_ranThrough = 100;
        const int status = inChild([&] {
            static_cast<void>(core::accessExecutor()); // oneTBB looks at the machine once, and for ever if that fails
            const Round round = runOnce(GetParam(), in, {first, false, GetParam().smallestByC});
            return round.status == g_survived && !round.bFailed                ? g_ranThrough
                   : round.status == g_survived && !worksAgain(GetParam(), in) ? g_brokenAfterwards
                                                                               : round.status;
        });
        bFailed = status != g_ranThrough;
        ASSERT_TRUE(!bFailed || status == g_survived)
            << "allocation " << first << " of the first call: it " << meaningOf(status) << " (" << status << ")";
    }
}

void laterCallsSurvive(const Call& call, bool bForGood)
{
    const Inputs in;
    const int status = inChild([&] {
        static_cast<void>(worksAgain(call, in)); // threads and tables are there
        bool bFailed = true;
        for (unsigned long first = 1; bFailed; ++first) {
            const FailingAllocations failing = {first, bForGood, call.smallestByC};
            const Round round = runOnce(call, in, failing);
            bFailed = round.bFailed;
            const int status = round.status != g_survived ? round.status
                               : leaks(call, in, failing) ? g_leak
                               : !worksAgain(call, in)    ? g_brokenAfterwards
                                                          : g_survived;
            if (status != g_survived) {
                std::fprintf(stderr, "allocation %lu\n", first);
                return status;
            }
        }
#ifdef ORLIX_ADDRESS_SANITIZER
        return __lsan_do_recoverable_leak_check() != 0 ? g_leak : g_survived;
#else
        return g_survived;
#endif
    });
    EXPECT_EQ(status, g_survived) << "it " << meaningOf(status);
}

TEST_P(ExhaustionTest, SurvivesEachAllocationThatFails)
{
    laterCallsSurvive(GetParam(), false);
}

TEST_P(ExhaustionTest, SurvivesTheEndOfMemory)
{
    laterCallsSurvive(GetParam(), true);
}

INSTANTIATE_TEST_SUITE_P(Calls, ExhaustionTest, ::testing::ValuesIn(g_calls),
                         [](const auto& info) { return std::string(info.param.name); });

/// What the other tests lean on.
TEST(FailingMemoryTest, FailsAsChosen)
{
    const auto pattern = [](const FailingAllocations& failing) {
        std::string text;
        text.reserve(8);
        const FailingMemory memory(failing);
        for (int i = 0; i < 5; ++i) {
            void* const block = ::operator new(400, std::nothrow);
            text += block ? '+' : '-';
            ::operator delete(block);
        }
        return text;
    };
    EXPECT_EQ(pattern({2, false}), "+-+++");
    EXPECT_EQ(pattern({2, true}), "+----");
    EXPECT_EQ(pattern({6, true}), "+++++");
}

} // namespace
} // namespace orlix::test
