// orlix run.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <gtest/gtest.h>

#include <cstring>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using orlix::testing::sameImages;
using NameSet = std::set<std::string>;

class RunTest : public ::testing::Test
{
protected:
    static ProgramResult run(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "run");
        return runOrlix(arguments);
    }
    static ProgramResult runQuietly(const std::vector<std::string>& arguments)
    {
        const ProgramResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        return result;
    }
    /// What the one line says.
    static std::string refusal(const std::vector<std::string>& arguments)
    {
        const ProgramResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_EQ(result.err.substr(0, 7), "orlix: ");
        return result.err.substr(7, result.err.size() - 8);
    }
    ImagePtr writeInput(const std::string& name, const image::BaseImageGeometry& geometry)
    {
        const ImagePtr image = makeNoise(geometry);
        image::io::writeImage(m_folder / name, image);
        return image;
    }

    const TemporaryFolder m_folder;
    const std::string m_in = "InImg=" + (m_folder / "in.tif");
    const std::string m_out = "OutImg=" + (m_folder / "out.tif");
};

TEST_F(RunTest, ReadsInputsAndWritesOutputs)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr in = writeInput("in.tif", *image::geometry5d(type, 67, 33, 3, 2, 2));
        runQuietly({"orlix::imaproc::util::CopyImgLvl1", m_in, m_out});
        EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "out.tif"), *in)) << image::getBufferTypeName(type);
    }
    EXPECT_EQ(m_folder.getNames(), (NameSet{"in.tif", "out.tif"}));
}

TEST_F(RunTest, NamespaceMayBeLeftOutAndOptionsStandAnywhere)
{
    const ImagePtr in = writeInput("in.tif", *image::geometry2d(eImageBufferType::Int16, 50, 40));
    runQuietly({"--compression", "lzw", "CopyImgLvl1", m_in, "--tile-size", "16", m_out, "--threads", "2"});
    EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "out.tif"), *in));
    EXPECT_TRUE(image::io::readImageInfo(m_folder / "out.tif").bTiled);
}

TEST_F(RunTest, SameFileWhateverThreadsAndInstructionSet)
{
    writeInput("in.tif", *image::geometry3d(eImageBufferType::UInt16, 701, 533, 3));
    runQuietly({"CopyImgLvl1", m_in, m_out});
    const std::string expected = contentOf(m_folder / "out.tif");
    runQuietly({"CopyImgLvl1", m_in, m_out, "--threads", "1"});
    EXPECT_EQ(contentOf(m_folder / "out.tif"), expected);
    for (const eInstructionSet& set : core::getAvailableInstructionSets()) {
        runQuietly({"CopyImgLvl1", m_in, m_out, "--instruction-set", core::getInstructionSetName(set)});
        EXPECT_EQ(contentOf(m_folder / "out.tif"), expected) << core::getInstructionSetName(set);
    }
}

TEST_F(RunTest, FileNamesMayHoldEqualsSigns)
{
    const ImagePtr in = writeInput("a=b.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    runQuietly({"CopyImgLvl1", "InImg=" + (m_folder / "a=b.tif"), "OutImg=" + (m_folder / "c=d=.png")});
    EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "c=d=.png"), *in));
}

TEST_F(RunTest, OutputsWithoutAFileAreDropped)
{
    writeInput("in.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    runQuietly({"CopyImgLvl1", m_in});
    EXPECT_EQ(m_folder.getNames(), NameSet{"in.tif"});
}

TEST_F(RunTest, GivenImageIsWrittenInto)
{
    const ImagePtr in = writeInput("in.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    const ImagePtr given = image::createImage(in->getGeometry());
    std::memset(image::planData<unsigned char>(*given, 0, 0, 0), 7, 72);
    image::io::writeImage(m_folder / "given.tif", given);
    const std::string before = contentOf(m_folder / "given.tif");
    runQuietly({"CopyImgLvl1", m_in, m_out, "--given", "OutImg=" + (m_folder / "given.tif")});
    EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "out.tif"), *in));
    EXPECT_EQ(contentOf(m_folder / "given.tif"), before);
}

TEST_F(RunTest, RuleOfTheProcessorJudgesTheGivenImage)
{
    writeInput("in.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    writeInput("given.tif", *image::geometry2d(eImageBufferType::UInt16, 9, 8));
    EXPECT_EQ(refusal({"CopyImgLvl1", m_in, m_out, "--given", "OutImg=" + (m_folder / "given.tif")}),
              "OutImg is 9x8x1x1x1 UInt16, InImg is 9x8x1x1x1 UInt8: sizes and element types have to be the same");
    EXPECT_EQ(m_folder.getNames(), (NameSet{"in.tif", "given.tif"}));
}

TEST_F(RunTest, SlicesThatAVolumeLacksAreRefused)
{
    const ImagePtr in = writeInput("in.tif", *image::geometry3d(eImageBufferType::UInt8, 9, 8, 7));
    const std::string volume = "InImg3d=" + (m_folder / "in.tif");
    const std::string slice = "OutImg2d=" + (m_folder / "slice.tif");
    runQuietly({"GetSlice3dImgLvl1", volume, "InAxis=y", "InSliceIndex=7", slice});
    const ImagePtr read = image::io::readImage(m_folder / "slice.tif");
    EXPECT_EQ(read->getGeometry().toString(), "9x7x1x1x1 UInt8");
    EXPECT_EQ(std::memcmp(read->accessRow(6, 0, 0, 0), in->accessRow(7, 6, 0, 0), 9), 0);

    const std::string noSuch = "There is no slice 8 along y: the volume is 9x8x7x1x1 UInt8, "
                               "so choose one of the first 8 from 0";
    EXPECT_EQ(refusal({"GetSlice3dImgLvl1", volume, "InAxis=y", "InSliceIndex=8", slice}), noSuch);
    const std::string put = "InImg2d=" + (m_folder / "slice.tif");
    EXPECT_EQ(refusal({"PutSlice3dImgLvl1", volume, put, "InAxis=y", "InSliceIndex=8", m_out}), noSuch);
    writeInput("wide.tif", *image::geometry2d(eImageBufferType::Real32, 9, 7));
    EXPECT_EQ(refusal({"PutSlice3dImgLvl1", volume, "InImg2d=" + (m_folder / "wide.tif"), "InAxis=y", "InSliceIndex=1",
                       m_out}),
              "The slice is 9x7x1x1x1 Real32, the volume 9x8x7x1x1 UInt8: give a slice of the volume's element type, "
              "or convert it first");
    runQuietly({"PutSlice3dImgLvl1", volume, put, "InAxis=y", "InSliceIndex=7", m_out});
    EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "out.tif"), *in));
}

TEST_F(RunTest, ProcessorOfAPlanTakesImagesOfOnePlan)
{
    const ImagePtr in = writeInput("in.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    writeInput("volume.tif", *image::geometry3d(eImageBufferType::UInt8, 9, 8, 2));
    writeInput("given.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    const std::string given = "OutImg=" + (m_folder / "given.tif");
    runQuietly({"CopyImgLvl2", "InSubImg2d=" + (m_folder / "in.tif"), m_out, "--given", given});
    EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "out.tif"), *in));
    EXPECT_NE(refusal({"CopyImgLvl2", "InSubImg2d=" + (m_folder / "volume.tif"), "--given",
                       "OutImg=" + (m_folder / "volume.tif")})
                  .find("Strips are cut from one plan, but the image is 9x8x2x1x1 UInt8"),
              std::string::npos);
}

TEST_F(RunTest, OutputsThatAreNoImagesArePrinted)
{
    const ImagePtr in = writeInput("in.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    image::planData<unsigned char>(*in, 0, 0, 0)[13] ^= 1;
    image::io::writeImage(m_folder / "changed.tif", in);
    const std::vector<std::string> arguments = {"run", "CompareImgLvl1", "InImg1=" + (m_folder / "in.tif"),
                                                "InImg2=" + (m_folder / "changed.tif")};
    const std::string found = "{identical: false, nbDifferentPixels: 1, nbComparedPixels: 72, firstDifference: {x: 4, "
                              "y: 1, z: 0, c: 0, t: 0}";
    const ProgramResult result = runOrlix(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out.find("OutCompareResult: " + found), 0U) << result.out;
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 1);
    std::vector<std::string> asJson = arguments;
    asJson.push_back("--json");
    const JsonDocument document = parseJson(runOrlix(asJson).out);
    EXPECT_EQ(document["processor"].text, "orlix::imaproc::util::CompareImgLvl1");
    const JsonDocument& output = document["outputs"]["OutCompareResult"];
    EXPECT_FALSE(output["identical"].bValue);
    EXPECT_EQ(output["nbDifferentPixels"].number, 1);
    EXPECT_EQ(output["nbComparedPixels"].number, 72);
    ASSERT_EQ(output["firstDifference"].members.size(), 5U);
    EXPECT_EQ(output["firstDifference"]["x"].number, 4);
    EXPECT_EQ(output["firstDifference"]["y"].number, 1);
    EXPECT_EQ(output["firstDifference"]["t"].number, 0);
    const ImagePtr before = image::io::readImage(m_folder / "in.tif");
    EXPECT_EQ(output["firstValue1"].number, image::planData<unsigned char>(*before, 0, 0, 0)[13]);
    EXPECT_EQ(output["firstValue2"].number, image::planData<unsigned char>(*in, 0, 0, 0)[13]);
}

TEST_F(RunTest, ADifferenceThatIsNotThereIsNone)
{
    writeInput("in.tif", *image::geometry2d(eImageBufferType::UInt8, 9, 8));
    const std::string file = m_folder / "in.tif";
    const std::string same = "{identical: true, nbDifferentPixels: 0, nbComparedPixels: 72, firstDifference: none, "
                             "firstValue1: none, firstValue2: none}";
    EXPECT_EQ(runOrlix({"run", "CompareImgLvl1", "InImg1=" + file, "InImg2=" + file}).out,
              "OutCompareResult: " + same + "\n");
    const ProgramResult json = runOrlix({"run", "CompareImgLvl1", "InImg1=" + file, "InImg2=" + file, "--json"});
    const JsonDocument document = parseJson(json.out);
    const JsonDocument& output = document["outputs"]["OutCompareResult"];
    EXPECT_TRUE(output["identical"].bValue);
    EXPECT_EQ(output["nbComparedPixels"].number, 72);
    for (const char* const name : {"firstDifference", "firstValue1", "firstValue2"}) {
        EXPECT_TRUE(output[name].isNull()) << name;
    }
}

TEST_F(RunTest, JsonTellsTheImagesThatWereWritten)
{
    writeInput("in.tif", *image::geometry2d(eImageBufferType::Int32, 4, 3));
    const ProgramResult result = run({"CopyImgLvl1", m_in, m_out, "--json"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    const JsonDocument document = parseJson(result.out);
    EXPECT_EQ(document["processor"].text, "orlix::imaproc::util::CopyImgLvl1");
    ASSERT_EQ(document["outputs"].members.size(), 1U);
    const JsonDocument& output = document["outputs"]["OutImg"];
    EXPECT_EQ(output["file"].text, m_folder / "out.tif");
    EXPECT_EQ(output["size"]["x"].number, 4);
    EXPECT_EQ(output["type"].text, "Int32");
    EXPECT_TRUE(output["calibration"].isNull());
}

TEST_F(RunTest, UnknownProcessorsAreToldWithNamesThatComeNear)
{
    EXPECT_EQ(refusal({"CopyImg"}), "\"CopyImg\" is no processor; near it are CopyImgLvl1, CopyImgLvl2, CopyImgLvl3, "
                                    "CopyImgGpuLvl3; `orlix processors` lists all");
    EXPECT_EQ(refusal({"orlix::CopyImgLv1"}).find("\"orlix::CopyImgLv1\" is no processor; near it are CopyImgLvl1"),
              0U);
    EXPECT_EQ(refusal({"frobnicate"}), "\"frobnicate\" is no processor; `orlix processors` lists all");
}

TEST_F(RunTest, MistakesAreToldBeforeAnyFileIsTouched)
{
    const std::string in = "InImg=/nowhere/in.tif";
    EXPECT_EQ(refusal({"CopyImgLvl1"}), "CopyImgLvl1 needs InImg (Input image): add InImg=FILE");
    EXPECT_EQ(refusal({"CopyImgLvl1", in, "InImg=b.tif"}), "InImg is given twice; leave one out");
    EXPECT_EQ(refusal({"CopyImgLvl1", "InPicture=b.tif"}),
              "CopyImgLvl1 has no attribute \"InPicture\"; it has InImg, OutImg");
    EXPECT_EQ(refusal({"CopyImgLvl1", "inImgg=b.tif"}),
              "CopyImgLvl1 has no attribute \"inImgg\"; near it is InImg; it has InImg, OutImg");
    for (const char* word : {"b.tif", "=b.tif"}) {
        EXPECT_EQ(refusal({"CopyImgLvl1", word}).find("\"" + std::string(word) + "\" must be an ATTRIBUTE=VALUE"), 0U);
        EXPECT_EQ(refusal({"CopyImgLvl1", "--given", word}).find("\"" + std::string(word) + "\" must be"), 0U);
    }
    EXPECT_NE(refusal({"CopyImgLvl1", in, "OutImg=a.jpg"}).find("the ending \".jpg\" names no format"),
              std::string::npos);
    EXPECT_EQ(refusal({"CopyImgLvl1", in, "OutImg=a.png", "--tiled"}).find("--tiled is for TIFF files"), 0U);
    EXPECT_EQ(refusal({"CopyImgLvl1", "--given", in}),
              "--given is for outputs that are images, but InImg is none; write InImg=VALUE alone");
    EXPECT_EQ(refusal({"CopyImgLvl2", "InSubImg2d=a.tif"}),
              "CopyImgLvl2 writes OutImg into an image that is there already: read one with --given OutImg=FILE");
    EXPECT_EQ(
        refusal({"CopyImgLvl3"}),
        "CopyImgLvl3 needs InYStrip2d (strip), which neither a file nor a text can give: run a processor of level 1");
    EXPECT_EQ(refusal({"CompareImgLvl1", "InOptImgComparisonTolerance=1"})
                  .find("InOptImgComparisonTolerance: expected mode=<whole number from 0 to 4294967295>,"
                        "absoluteTolerance=<number>,relativeTolerance=<number>, found \"1\""),
              0U);
    EXPECT_EQ(refusal({"CopyImgLvl1", in, m_out}).find("/nowhere/in.tif: can't be opened"), 0U);
}

TEST_F(RunTest, FailureKeepsTheOldTarget)
{
    writeInput("in.tif", *image::geometry2d(eImageBufferType::UInt8, 100, 100));
    std::filesystem::resize_file(m_folder / "in.tif", 5000);
    writeText(m_folder / "out.tif", "old");
    EXPECT_NE(refusal({"CopyImgLvl1", m_in, m_out}).find("damaged or cut short"), std::string::npos);
    EXPECT_EQ(contentOf(m_folder / "out.tif"), "old");
    EXPECT_EQ(m_folder.getNames(), (NameSet{"in.tif", "out.tif"}));
}

TEST_F(RunTest, HelpListsTheAttributes)
{
    const ProgramResult copy = run({"CopyImgLvl1", "--help"});
    EXPECT_EQ(copy.exitCode, 0);
    EXPECT_EQ(copy.err, "");
    EXPECT_NE(copy.out.find("Attributes of orlix::imaproc::util::CopyImgLvl1:\n"
                            "  InImg   Input image (input: image)\n"
                            "  OutImg  Output image (output: image)\n"),
              std::string::npos)
        << copy.out;
    EXPECT_NE(run({"--help"}).out.find("`orlix run PROCESSOR --help` lists the attributes"), std::string::npos);
    EXPECT_EQ(refusal({"CopyImg", "--help"}).find("\"CopyImg\" is no processor"), 0U);
}

} // namespace
} // namespace orlix::test
