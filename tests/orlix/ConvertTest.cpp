// orlix convert.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using image::geometry5d;
using orlix::testing::sameImages;
using NameSet = std::set<std::string>;

class ConvertTest : public ::testing::Test
{
protected:
    ProgramResult convert(const ImageConstPtr& image, const std::vector<std::string>& options)
    {
        image::io::writeImage(m_folder / "in.tif", image);
        std::vector<std::string> arguments{"convert", m_folder / "in.tif", m_folder / "out.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    }

    const TemporaryFolder m_folder;
};

template <class T>
void setRow(const ImagePtr& image, const std::vector<T>& values)
{
    std::copy(values.begin(), values.end(), image::planData<T>(*image, 0, 0, 0));
}

TEST_F(ConvertTest, ToEveryTypeItTells)
{
    // values that every type but Binary holds
    const ImagePtr in = image::createImage(*image::geometry2d(eImageBufferType::Int32, 5, 1));
    setRow<int>(in, {0, 1, 2, 100, 127});
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ProgramResult result = convert(in, {"--type", image::getBufferTypeName(type)});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        const ImagePtr out = image::io::readImage(m_folder / "out.tif");
        EXPECT_EQ(out->getGeometry().toString(), std::string("5x1x1x1x1 ") + image::getBufferTypeName(type));
        const ProgramResult back =
            runOrlix({"convert", m_folder / "out.tif", m_folder / "back.tif", "--type", "int32"});
        EXPECT_EQ(back.exitCode, 0) << back.err;
        const ImagePtr expected = image::createImage(in->getGeometry());
        const bool bBinary = type == eImageBufferType::eBufferBinary;
        setRow<int>(expected, bBinary ? std::vector<int>{0, 1, 1, 1, 1} : std::vector<int>{0, 1, 2, 100, 127});
        EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "back.tif"), *expected));
    }
}

TEST_F(ConvertTest, KeepsAxesAndCalibration)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::UInt8, 9, 8, 4, 3, 2));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.5F, 2, 1, 2, 3);
    in->setGeometricCalibration(calibration);
    EXPECT_EQ(convert(in, {"--type", "Real32", "--compression", "deflate"}).exitCode, 0);
    const ImagePtr out = image::io::readImage(m_folder / "out.tif");
    EXPECT_EQ(out->getGeometry().toString(), "9x8x4x3x2 Real32");
    EXPECT_EQ(*out->getGeometricCalibration(), *calibration);
}

TEST_F(ConvertTest, SameFileWhateverThreadsAndInstructionSet)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::UInt8, 701, 533, 3, 1, 1));
    ASSERT_EQ(convert(in, {"--type", "UInt16"}).exitCode, 0);
    const std::string expected = contentOf(m_folder / "out.tif");
    EXPECT_EQ(convert(in, {"--type", "UInt16", "--threads", "1"}).exitCode, 0);
    EXPECT_EQ(contentOf(m_folder / "out.tif"), expected);
    for (const eInstructionSet& set : core::getAvailableInstructionSets()) {
        const char* name = core::getInstructionSetName(set);
        EXPECT_EQ(convert(in, {"--type", "UInt16", "--instruction-set", name}).exitCode, 0);
        EXPECT_EQ(contentOf(m_folder / "out.tif"), expected) << name;
    }
}

/// 300 has no place in a byte: plain code keeps its low bits, vector code clamps it.
TEST_F(ConvertTest, InstructionSetIsTheOneThatWasAskedFor)
{
    const ImagePtr in = image::createImage(*image::geometry2d(eImageBufferType::Int32, 1, 1));
    setRow<int>(in, {300});
    const auto converted = [&](const std::string& before, const std::string& after) {
        image::io::writeImage(m_folder / "in.tif", in);
        const std::vector<std::string> verb = {"convert", m_folder / "in.tif", m_folder / "out.tif", "--type", "UInt8"};
        std::vector<std::string> arguments;
        if (!before.empty()) {
            arguments = {"--instruction-set", before};
        }
        arguments.insert(arguments.end(), verb.begin(), verb.end());
        if (!after.empty()) {
            arguments.insert(arguments.end(), {"--instruction-set", after});
        }
        EXPECT_EQ(runOrlix(arguments).exitCode, 0);
        return static_cast<int>(*image::planData<unsigned char>(*image::io::readImage(m_folder / "out.tif"), 0, 0, 0));
    };
    EXPECT_EQ(converted("", "plain"), 44);
    EXPECT_EQ(converted("", "SSE2"), 255);
    EXPECT_EQ(converted("plain", ""), 44);
    EXPECT_EQ(converted("sse2", ""), 255);
    EXPECT_EQ(converted("plain", "sse2"), 255);
    EXPECT_EQ(converted("sse2", "PLAIN"), 44);
    EXPECT_EQ(converted("", ""), 255) << "every processor has SSE2";
}

TEST_F(ConvertTest, JsonTellsWhatWasWritten)
{
    const ProgramResult result =
        convert(makeNoise(*image::geometry2d(eImageBufferType::Int32, 4, 3)), {"--type", "UInt8", "--json"});
    const JsonDocument document = parseJson(result.out);
    EXPECT_EQ(document["output"].text, m_folder / "out.tif");
    EXPECT_EQ(document["type"].text, "UInt8");
}

TEST_F(ConvertTest, TypesByOtherNames)
{
    const ImagePtr in = makeNoise(*image::geometry2d(eImageBufferType::UInt8, 4, 3));
    const std::vector<std::pair<std::string, eImageBufferType::domain>> types = {
        {"int8", eImageBufferType::Int8},          {"UINT8", eImageBufferType::UInt8},
        {"int16", eImageBufferType::Int16},        {"uint16", eImageBufferType::UInt16},
        {"Int32", eImageBufferType::Int32},        {"uint32", eImageBufferType::UInt32},
        {"float32", eImageBufferType::Real32},     {"Float32", eImageBufferType::Real32},
        {"bool", eImageBufferType::eBufferBinary}, {"BOOL", eImageBufferType::eBufferBinary}};
    for (const auto& [name, type] : types) {
        const ProgramResult result = convert(in, {"--type", name});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(image::io::readImage(m_folder / "out.tif")->getBufferType(), type) << name;
        const ProgramResult run = runOrlix({"run", "ConvertImgLvl1", "InImg=" + (m_folder / "in.tif"),
                                            "OutImg=" + (m_folder / "run.tif"), "InConvertImageBufferType=" + name});
        EXPECT_EQ(run.exitCode, 0) << run.err;
        EXPECT_EQ(image::io::readImage(m_folder / "run.tif")->getBufferType(), type) << name;
    }
}

TEST_F(ConvertTest, TypeIsNeededAndHasToBeOne)
{
    const ImagePtr in = makeNoise(*image::geometry2d(eImageBufferType::UInt8, 4, 3));
    const ProgramResult none = convert(in, {});
    EXPECT_EQ(none.exitCode, 2);
    EXPECT_NE(none.err.find("--type is required"), std::string::npos) << none.err;
    const ProgramResult unknown = convert(in, {"--type", "Float64"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_NE(unknown.err.find("--type"), std::string::npos) << unknown.err;
    EXPECT_NE(unknown.err.find("Float64"), std::string::npos) << unknown.err;
    for (const auto& [name, near] : {std::pair("Unit8", "UInt8"), std::pair("flaot32", "float32")}) {
        const std::string hint = "found \"" + std::string(name) + "\"; near it is " + near;
        const ProgramResult mistyped = convert(in, {"--type", name});
        EXPECT_EQ(mistyped.exitCode, 2);
        EXPECT_NE(mistyped.err.find("--type: expected one of Int8, "), std::string::npos) << mistyped.err;
        EXPECT_NE(mistyped.err.find(hint), std::string::npos) << mistyped.err;
        const ProgramResult run = runOrlix({"run", "ConvertImgLvl1", "InConvertImageBufferType=" + std::string(name)});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_NE(run.err.find(hint), std::string::npos) << run.err;
    }
    EXPECT_EQ(m_folder.getNames(), NameSet{"in.tif"});
}

TEST_F(ConvertTest, FormatThatLacksTheTypeIsRefused)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::UInt8, 8, 8)));
    const ProgramResult result = runOrlix({"convert", m_folder / "in.tif", m_folder / "out.png", "--type", "Real32"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("the image is 8x8x1x1x1 Real32"), std::string::npos) << result.err;
    EXPECT_EQ(m_folder.getNames(), NameSet{"in.tif"});
}

} // namespace
} // namespace orlix::test
