// Arguments, help, version and what is said about mistakes.
#include "CommandLine.h"
#include "Verb.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"
#include "support/Sanitizers.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>

#include <signal.h>
#include <sys/resource.h>

namespace orlix::test {
namespace {

struct Mistake
{
    std::vector<std::string> arguments;
    std::string told; ///< part of the line
};

/// All verbs of the program, as messages list them.
std::string allVerbs()
{
    std::string names;
    for (const cli::Verb* const verb : cli::getVerbs()) {
        names.append(names.empty() ? "" : ", ").append(verb->name);
    }
    return names;
}

class MistakeTest : public ::testing::TestWithParam<Mistake>
{};

TEST_P(MistakeTest, EndsWithOneLineAndExitCode2)
{
    const ProgramResult result = runOrlix(GetParam().arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.substr(0, 7), "orlix: ");
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
    EXPECT_EQ(result.err.back(), '\n');
    EXPECT_NE(result.err.find(GetParam().told), std::string::npos) << result.err;
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, MistakeTest,
    ::testing::Values(
        Mistake{{}, "a verb is needed, one of " + allVerbs() + ";"},
        Mistake{{"frobnicate"}, "\"frobnicate\" is no verb"}, Mistake{{"--json"}, "a verb is needed"},
        Mistake{{"info"}, "FILE is required; `orlix info --help` tells more"},
        Mistake{{"info", "--devices", "a.tif"}, "--devices tells of this computer and no file: leave out a.tif"},
        Mistake{{"info", "--bogus", "a.tif"},
                "\"--bogus\" is no option of `orlix info`; `orlix info --help` lists all"},
        Mistake{{"--versoin"}, "\"--versoin\" is no option of `orlix`; near it is --version; `orlix --help`"},
        Mistake{{"convert", "a.tif", "b.tif", "--typ", "UInt8"},
                "\"--typ\" is no option of `orlix convert`; near it is --type;"},
        Mistake{{"convert", "a.tif", "b.tif", "--Typ=UInt8"}, "\"--Typ\" is no option"},
        Mistake{{"info", "-x"}, "\"-x\" is no option of `orlix info`"}, Mistake{{"--"}, "a verb is needed"},
        Mistake{{"erase", "a.tif", "b.tif", "--value", "1", "--value=2"}, "--value is given twice; leave one out"},
        Mistake{{"erase", "a.tif", "b.tif", "--value"}, "--value needs a value; `orlix erase --help` tells more"},
        Mistake{{"copy", "a.tif", "b.tif", "--tiled=no"}, "--tiled takes no value; `orlix copy --help`"},
        Mistake{{"--json=maybe", "info", "a.tif"}, "--json takes no value; `orlix --help`"},
        Mistake{{"--threads=2", "--threads", "3", "info", "a.tif"}, "--threads is given twice"},
        Mistake{{"--qiet", "info", "a.tif"}, "near it is --quiet"},
        Mistake{{"copy", "a.tif", "b.tif", "--compresion=lzw"},
                "\"--compresion\" is no option of `orlix copy`; near it is --compression;"},
        Mistake{{"comapre", "a.tif", "b.tif"}, "\"comapre\" is no verb; near it is compare; use one of info, copy, "},
        Mistake{{"--bogus", "info", "a.tif"}, "\"--bogus\" is no option of `orlix info`"},
        Mistake{{"processors", "nothing"}, "\"nothing\" is no processor"},
        Mistake{{"processors", "CopyImgLvl1", "surplus"}, "not expected: surplus"},
        Mistake{{"append", "a.tif"}, "SECOND is required; `orlix append --help` tells more"},
        Mistake{{"append", "a.tif", "b.tif"}, "OUT is required; `orlix append --help` tells more"},
        Mistake{{"append"}, "FIRST is required"},
        Mistake{{"append", "a.tif", "b.tif", "c.jpg"}, "the ending \".jpg\" names no format"},
        Mistake{{"run"}, "PROCESSOR is required; `orlix run --help` tells more"},
        Mistake{{"run", "CopyImgLvl1", "--given"}, "--given"}, Mistake{{"copy", "a.tif"}, "OUT is required"},
        Mistake{{"copy", "a.tif", "b.tif", "c.tif"}, "not expected: c.tif"},
        Mistake{{"copy", "a.tif", "b.jpg"}, "the ending \".jpg\" names no format"},
        Mistake{{"copy", "a.tif", "b"}, "names no format"},
        Mistake{{"copy", "a.tif", "b.png", "--tiled"}, "--tiled is for TIFF files"},
        Mistake{{"copy", "a.tif", "b.png", "--compression", "lzw"}, "--compression is for TIFF files"},
        Mistake{{"copy", "a.tif", "b.png", "--tiled", "--compression", "lzw"}, "--compression is for TIFF files"},
        Mistake{{"copy", "a.tif", "b.png", "--compression", "lzw", "--tiled"}, "--compression is for TIFF files"},
        Mistake{{"copy", "a.tif", "b.tif", "--compression", "defalte"},
                "--compression: expected one of none, packbits, lzw, deflate, zstd, lzma, found "
                "\"defalte\"; near it is deflate; `orlix copy --help`"},
        Mistake{{"copy", "a.tif", "b.tif", "--tile-size", "many"},
                "--tile-size: expected a multiple of 16 from 16 to 65520, found \"many\""},
        Mistake{{"copy", "a.tif", "b.tif", "--tile-size", "0"}, "--tile-size: expected"},
        Mistake{{"copy", "a.tif", "b.tif", "--tile-size", "40"}, "--tile-size: expected"},
        Mistake{{"copy", "a.tif", "b.tif", "--tile-size", "65536"}, "--tile-size: expected"},
        Mistake{{"threshold", "a.tif", "b.tif", "--min", "2.50", "--max", "1e0"}, "--min 2.50 is above --max 1e0"},
        Mistake{{"compare", "a.tif", "b.tif", "--absolute", "-1"},
                "--absolute: expected a number from 0 to 3.4028235e+38, found \"-1\"; `orlix compare"},
        Mistake{{"compare", "a.tif", "b.tif", "--relative", "few"}, "--relative"},
        Mistake{{"--threads", "x", "processors"}, "--threads: expected a whole number from 1 to "},
        Mistake{{"processors", "--threads", "0"}, "--threads: expected a whole number from 1 to "},
        Mistake{{"processors", "--threads", "2.5"}, "--threads: expected a whole number from 1 to "},
        Mistake{{"processors", "--threads", "18446744073709551617"}, "--threads: expected"},
        Mistake{{"processors", "--threads", "100000"}, "found \"100000\"; `orlix processors --help` tells more"},
        Mistake{{"processors", "--threads="}, "--threads needs a value"},
        Mistake{{"--threads", "-1", "processors"}, "--threads"}, Mistake{{"processors", "--threads"}, "--threads"},
        Mistake{{"processors", "--instruction-set", "SSSE2"},
                "\"SSSE2\" is no instruction set; near it is SSE2; use one that this processor has: plain"},
        Mistake{{"processors", "--instruction-set", ""}, "\"\" is no instruction set; use one"}));

INSTANTIATE_TEST_SUITE_P(
    Files, MistakeTest,
    ::testing::Values(Mistake{{"info", "/nowhere/a.tif"}, "/nowhere/a.tif: can't be opened"},
                      Mistake{{"info", ""}, "the name of a file is empty"},
                      Mistake{{"copy", "", "b.tif"}, "the name of a file is empty"},
                      Mistake{{"copy", "a.tif", ""}, "the name of a file is empty"},
                      Mistake{{"run", "CopyImgLvl1", "InImg="}, "the name of a file is empty"},
                      Mistake{{"compare", "a.tif", "b.tif", "--picture", ""}, "the name of a file is empty"},
                      Mistake{{"compare", "a.tif", "b.tif", "--picture", "c.jpg"},
                              "--picture: the picture is a PNG file, but its name is c.jpg: let it end in .png"},
                      Mistake{{"info", "/"}, "must be a regular file, but is a folder"},
                      Mistake{{"info", "/dev/null"}, "must be a regular file"},
                      Mistake{{"info", ORLIX_PROGRAM}, "must be a TIFF or PNG file"},
                      Mistake{{"info", "two\nlines\x1b[1m.tif"}, "two\\nlines\\x1b[1m.tif: can't be opened"},
                      Mistake{{"copy", "/nowhere/a.tif", "b.tif"}, "/nowhere/a.tif: can't be opened"},
                      Mistake{{"copy", ORLIX_PROGRAM, "b.tif"}, "must be a TIFF or PNG file"}));

TEST(ArgumentsTest, WorkBeforeAndAfterTheVerb)
{
    const ProgramResult after = runOrlix({"processors", "--json", "--threads", "2", "--quiet"});
    EXPECT_EQ(after.exitCode, 0) << after.err;
    EXPECT_EQ(after.out.front(), '[');
    const ProgramResult before = runOrlix({"--json", "--threads=2", "--quiet", "processors"});
    EXPECT_EQ(before.exitCode, 0) << before.err;
    EXPECT_EQ(before.out, after.out);
}

TEST(ArgumentsTest, ThoseAfterTheVerbWin)
{
    EXPECT_EQ(runOrlix({"--instruction-set", "bogus", "processors", "--instruction-set", "plain"}).exitCode, 0);
    EXPECT_EQ(runOrlix({"--instruction-set", "plain", "processors", "--instruction-set", "bogus"}).exitCode, 2);
}

/// Runs the command in this process; 0 where it succeeds and leaves an executor of `nbThreads` threads.
int threadsAfter(const std::vector<const char*>& arguments, unsigned long nbThreads)
{
    const std::ostringstream unread;
    std::cout.rdbuf(unread.rdbuf());
    return cli::runCommandLine(static_cast<int>(arguments.size()), arguments.data()) == 0 &&
                   core::accessExecutor().getNbThreads() == nbThreads
               ? 0
               : 1;
}

TEST(ArgumentsTest, ThreadsAreAsManyAsWereAskedFor)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto leftWith = ::testing::ExitedWithCode(0);
    EXPECT_EXIT(std::_Exit(threadsAfter({"orlix", "processors", "--threads", "3"}, 3)), leftWith, "");
    EXPECT_EXIT(std::_Exit(threadsAfter({"orlix", "--threads", "5", "processors"}, 5)), leftWith, "");
    EXPECT_EXIT(std::_Exit(threadsAfter({"orlix", "--threads=5", "processors", "--threads=1"}, 1)), leftWith, "");
    EXPECT_EXIT(std::_Exit(threadsAfter({"orlix", "processors"}, core::getNbUsableThreads())), leftWith, "");
}

TEST(ArgumentsTest, FileMayHaveTheNameOfAVerbOrLookLikeAnOption)
{
    const TemporaryFolder folder;
    const ImagePtr image = makeNoise(*image::geometry2d(image::eImageBufferType::UInt8, 5, 4));
    image::io::writeImage(folder / "copy.tif", image);
    std::filesystem::rename(folder / "copy.tif", folder / "copy");
    std::filesystem::copy(folder / "copy", folder / "-a.tif");
    const auto enter = [&] { std::filesystem::current_path(folder.getPath()); };
    const ProgramResult verb = Program({"info", "copy"}, Program::eStreams::pipes, enter).finish();
    EXPECT_EQ(verb.exitCode, 0) << verb.err;
    const ProgramResult option = Program({"info", "--", "-a.tif"}, Program::eStreams::pipes, enter).finish();
    EXPECT_EQ(option.exitCode, 0) << option.err;
}

TEST(ArgumentsTest, HelpListsVerbsAndOptions)
{
    const ProgramResult help = runOrlix({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.err, "");
    for (const char* word : {"info", "copy", "processors", "--threads N", "--instruction-set NAME", "--json", "--quiet",
                             "--version", "Exit codes"}) {
        EXPECT_NE(help.out.find(word), std::string::npos) << word;
    }
    const ProgramResult copy = runOrlix({"copy", "--help"});
    EXPECT_EQ(copy.exitCode, 0);
    for (const char* word : {"IN", "OUT", "--compression none|packbits|lzw|deflate|zstd|lzma", "--no-predictor",
                             "--tiled", "--tile-size PIXELS", "--channels", "--byte-order", "--big-tiff", "--threads N",
                             "--instruction-set NAME", "--json", "--quiet"}) {
        EXPECT_NE(copy.out.find(word), std::string::npos) << word;
    }
}

TEST(ArgumentsTest, HelpFitsATerminalOf100Columns)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"info", "--help"},
                                                      {"copy", "--help"},
                                                      {"processors", "--help"},
                                                      {"run", "--help"},
                                                      {"run", "CompareImgLvl1", "--help"}}) {
        std::istringstream lines(runOrlix(arguments).out);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 100U) << line;
        }
    }
}

TEST(ArgumentsTest, VersionIsOneLine)
{
    const ProgramResult result = runOrlix({"--version"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out.substr(0, 6), "orlix ");
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '.'), 2);
    EXPECT_EQ(result.out.back(), '\n');
}

TEST(ArgumentsTest, FullStandardOutputIsAFailure)
{
    for (const char* verb : {"processors", "--help", "--version"}) {
        const auto toFullDevice = [] {
            FILE* const full = std::freopen("/dev/full", "w", stdout);
            static_cast<void>(full);
        };
        const ProgramResult result = Program({verb}, Program::eStreams::pipes, toFullDevice).finish();
        EXPECT_EQ(result.exitCode, 2) << verb;
        EXPECT_NE(result.err.find("the standard output can't be written (No space left on device)"), std::string::npos);
    }
}

/// The file takes all but the last bytes.
TEST(ArgumentsTest, StandardOutputThatIsCutShortIsAFailure)
{
    const TemporaryFolder folder;
    const std::string file = folder / "list.txt";
    const unsigned long size = runOrlix({"processors"}).out.size() - 10;
    const auto toShortFile = [&file, size] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {size, size};
        if (std::freopen(file.c_str(), "w", stdout) == nullptr || ::setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            std::abort();
        }
    };
    const ProgramResult result = Program({"processors"}, Program::eStreams::pipes, toShortFile).finish();
    EXPECT_EQ(std::filesystem::file_size(file), size);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("the standard output can't be written (File too large)"), std::string::npos)
        << result.err;
}

/// An instruction set that the processor lacks: on an emulated processor that has SSE2 only.
TEST(ArgumentsTest, MissingInstructionSetIsAFailure)
{
#if defined(ORLIX_ADDRESS_SANITIZER) || defined(ORLIX_THREAD_SANITIZER)
    GTEST_SKIP() << "sanitized programs don't run on the emulator";
#endif
    const std::string emulator = "/usr/bin/qemu-x86_64";
    if (!std::filesystem::exists(emulator)) {
        GTEST_SKIP() << emulator << " is not there";
    }
    const ProgramResult result =
        Program::start({emulator, "-cpu", "qemu64,-sse3", ORLIX_PROGRAM, "processors", "--instruction-set", "avx2"})
            .finish();
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "orlix: --instruction-set: this processor lacks AVX2; use one that it has: plain, SSE2\n");
}

} // namespace
} // namespace orlix::test
