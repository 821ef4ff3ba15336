// orlix copy.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"
#include "support/Sanitizers.h"

#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <boost/make_shared.hpp>

#include <sys/resource.h>

#include <gtest/gtest.h>

#include <csignal>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using NameSet = std::set<std::string>;

class CopyTest : public ::testing::Test
{
protected:
    /// Writes `in.tif`, copies it to `target` and returns what came of it.
    ImagePtr copy(const ImageConstPtr& image, const std::string& target, std::vector<std::string> options = {})
    {
        image::io::writeImage(m_folder / "in.tif", image);
        std::vector<std::string> arguments{"copy", m_folder / "in.tif", m_folder / target};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProgramResult result = runOrlix(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(m_folder.getNames(), (NameSet{"in.tif", target}));
        return image::io::readImage(m_folder / target);
    }

    const TemporaryFolder m_folder;
};

TEST_F(CopyTest, KeepsElementsOfEveryType)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = makeNoise(*image::geometry5d(type, 67, 33, 3, 2, 2));
        EXPECT_TRUE(orlix::testing::sameImages(*copy(image, "out.tif"), *image)) << image::getBufferTypeName(type);
    }
}

TEST_F(CopyTest, KeepsCalibration)
{
    const ImagePtr image = makeNoise(*image::geometry3d(eImageBufferType::Int16, 9, 8, 7));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("\xc2\xb5m", 0.1F, 0.2F, 0.3F, 4, 5, 6, 0.5F, 0.25F, 0.125F);
    image->setGeometricCalibration(calibration);
    const ImagePtr copied = copy(image, "out.tif");
    ASSERT_TRUE(copied->hasGeometricCalibration());
    EXPECT_EQ(*copied->getGeometricCalibration(), *calibration);
}

TEST_F(CopyTest, SameFileWhateverThreadsAndInstructionSet)
{
    const ImagePtr image = makeNoise(*image::geometry3d(eImageBufferType::UInt16, 701, 533, 5));
    copy(image, "out.tif");
    const std::string expected = contentOf(m_folder / "out.tif");
#ifdef ORLIX_THREAD_SANITIZER
    const std::vector<const char*> threads = {"1"};
#else
    const std::vector<const char*> threads = {"1", "2", "7"};
#endif
    for (const char* nbThreads : threads) {
        copy(image, "out.tif", {"--threads", nbThreads});
        EXPECT_EQ(contentOf(m_folder / "out.tif"), expected) << nbThreads << " threads";
    }
    for (const eInstructionSet& set : core::getAvailableInstructionSets()) {
        copy(image, "out.tif", {"--instruction-set", core::getInstructionSetName(set)});
        EXPECT_EQ(contentOf(m_folder / "out.tif"), expected) << core::getInstructionSetName(set);
    }
}

TEST_F(CopyTest, ConvertsBetweenFileFormats)
{
    for (const auto& [type, channels] : {std::pair{eImageBufferType::UInt8, 1UL},
                                         {eImageBufferType::UInt8, 3UL},
                                         {eImageBufferType::UInt16, 4UL},
                                         {eImageBufferType::eBufferBinary, 1UL}}) {
        const ImagePtr image = makeNoise(*image::geometry5d(type, 45, 31, 1, channels, 1));
        EXPECT_TRUE(orlix::testing::sameImages(*copy(image, "out.png"), *image));
        std::filesystem::remove(m_folder / "in.tif");
        const ProgramResult back = runOrlix({"copy", m_folder / "out.png", m_folder / "back.tif"});
        EXPECT_EQ(back.exitCode, 0) << back.err;
        EXPECT_TRUE(orlix::testing::sameImages(*image::io::readImage(m_folder / "back.tif"), *image));
        std::filesystem::remove(m_folder / "back.tif");
    }
}

TEST_F(CopyTest, FormatThatLacksTheTypeIsRefused)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::Real32, 8, 8)));
    const ProgramResult result = runOrlix({"copy", m_folder / "in.tif", m_folder / "out.png"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("the image is 8x8x1x1x1 Real32"), std::string::npos) << result.err;
    EXPECT_EQ(m_folder.getNames(), NameSet{"in.tif"});
}

TEST_F(CopyTest, OptionsShapeTheTiffFile)
{
    const ImagePtr image = makeNoise(*image::geometry5d(eImageBufferType::UInt8, 100, 90, 1, 3, 1));
    const auto check = [&](const std::vector<std::string>& options) {
        EXPECT_TRUE(orlix::testing::sameImages(*copy(image, "out.tif", options), *image));
        return image::io::readImageInfo(m_folder / "out.tif");
    };
    EXPECT_EQ(check({}).pages, 1UL);
    EXPECT_EQ(check({"--channels", "pages"}).pages, 3UL);
    EXPECT_EQ(check({"--channels", "rgb"}).pages, 1UL);
    EXPECT_FALSE(check({}).bTiled);
    EXPECT_TRUE(check({"--tiled"}).bTiled);
    EXPECT_TRUE(check({"--tile-size", "32"}).bTiled);
    EXPECT_FALSE(check({}).bBigTiff);
    EXPECT_TRUE(check({"--big-tiff"}).bBigTiff);
    EXPECT_FALSE(check({"--byte-order", "little"}).bBigEndian);
    EXPECT_TRUE(check({"--byte-order", "big"}).bBigEndian);
    EXPECT_EQ(check({}).metadata, "OME-XML");
    EXPECT_EQ(check({"--format", "ome"}).metadata, "OME-XML");
    EXPECT_EQ(check({"--format", "imagej"}).metadata, "ImageJ");
    const std::string plain = check({}).compression;
    std::set<std::string> compressions{plain};
    for (const char* name : {"packbits", "lzw", "deflate", "zstd", "LZMA"}) {
        EXPECT_TRUE(compressions.insert(check({"--compression", name}).compression).second) << name;
    }
    check({"--compression", "lzw"});
    const std::string predicted = contentOf(m_folder / "out.tif");
    check({"--compression", "lzw", "--no-predictor"});
    EXPECT_NE(contentOf(m_folder / "out.tif"), predicted);
}

TEST_F(CopyTest, JsonTellsWhatWasWritten)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::Int32, 4, 3)));
    const ProgramResult result = runOrlix({"copy", m_folder / "in.tif", m_folder / "out.tif", "--json"});
    EXPECT_EQ(result.exitCode, 0);
    const JsonDocument document = parseJson(result.out);
    EXPECT_EQ(document["input"].text, m_folder / "in.tif");
    EXPECT_EQ(document["output"].text, m_folder / "out.tif");
    EXPECT_EQ(document["size"]["x"].number, 4);
    EXPECT_EQ(document["type"].text, "Int32");
}

TEST_F(CopyTest, OutputMayBeTheInput)
{
    const ImagePtr image = makeNoise(*image::geometry2d(eImageBufferType::UInt8, 50, 40));
    image::io::writeImage(m_folder / "in.tif", image);
    const ProgramResult result =
        runOrlix({"copy", m_folder / "in.tif", m_folder / "in.tif", "--compression", "deflate"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(orlix::testing::sameImages(*image::io::readImage(m_folder / "in.tif"), *image));
    EXPECT_EQ(m_folder.getNames(), NameSet{"in.tif"});
}

TEST_F(CopyTest, TargetThatCannotBeWrittenIsRefused)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::UInt8, 50, 40)));
    std::filesystem::create_directory(m_folder / "folder.tif");
    for (const std::string& target :
         {m_folder / "missing/out.tif", m_folder / "folder.tif", std::string("/proc/out.tif")}) {
        const ProgramResult result = runOrlix({"copy", m_folder / "in.tif", target});
        EXPECT_EQ(result.exitCode, 2) << target;
        EXPECT_EQ(result.err.find("orlix: " + target + ": "), 0U) << result.err;
        EXPECT_EQ(m_folder.getNames(), (NameSet{"in.tif", "folder.tif"}));
    }
}

/// As on a full disk: the output grows past what it may.
TEST_F(CopyTest, FailedWriteKeepsTheOldTarget)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::UInt8, 1000, 1000)));
    for (const char* target : {"out.tif", "out.png"}) {
        writeText(m_folder / target, "old");
        const auto limit = [] {
            std::signal(SIGXFSZ, SIG_DFL);
            const rlimit most = {100000, 100000};
            ::setrlimit(RLIMIT_FSIZE, &most);
        };
        const ProgramResult result =
            Program({"copy", m_folder / "in.tif", m_folder / target}, Program::eStreams::pipes, limit).finish();
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.err.find("orlix: " + (m_folder / target) + ": can't be written (File too large)"), 0U)
            << result.err;
        EXPECT_EQ(contentOf(m_folder / target), "old");
    }
    EXPECT_EQ(m_folder.getNames(), (NameSet{"in.tif", "out.tif", "out.png"}));
}

TEST_F(CopyTest, CompressionThatIsNotBuiltInIsRefusedBeforeAnyWork)
{
    const auto loadWithoutLzma = [] {
        ::setenv("LD_PRELOAD", ORLIX_WITHOUT_LZMA, 1);
        ::setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
    };
    const auto run = [&](const std::vector<std::string>& arguments) {
        return Program(arguments, Program::eStreams::pipes, loadWithoutLzma).finish();
    };
    const std::string refusal = "orlix: --compression: lzma is not built into the TIFF library of this system; use one "
                                "of none, packbits, lzw, deflate, zstd\n";
    const ProgramResult copy = run({"copy", "/nowhere/in.tif", m_folder / "out.tif", "--compression", "lzma"});
    EXPECT_EQ(copy.exitCode, 2);
    EXPECT_EQ(copy.err, refusal);
    const ProgramResult processor = run(
        {"run", "CopyImgLvl1", "InImg=/nowhere/in.tif", "OutImg=" + (m_folder / "out.tif"), "--compression", "lzma"});
    EXPECT_EQ(processor.exitCode, 2);
    EXPECT_EQ(processor.err, refusal);
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::UInt8, 9, 9)));
    EXPECT_EQ(run({"copy", m_folder / "in.tif", m_folder / "out.tif", "--compression", "zstd"}).exitCode, 0);
}

TEST_F(CopyTest, TruncatedInputIsRefused)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::UInt8, 100, 100)));
    std::filesystem::resize_file(m_folder / "in.tif", 5000);
    const ProgramResult result = runOrlix({"copy", m_folder / "in.tif", m_folder / "out.tif"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("damaged or cut short"), std::string::npos) << result.err;
    EXPECT_EQ(m_folder.getNames(), NameSet{"in.tif"});
}

} // namespace
} // namespace orlix::test
