// orlix info.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using image::eImageBufferType;

ImagePtr makeCalibrated()
{
    const ImagePtr image = makeNoise(*image::geometry5d(eImageBufferType::UInt16, 7, 5, 3, 2, 4));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.25F, 1.5F, 1, -2, 3);
    image->setGeometricCalibration(calibration);
    return image;
}

TEST(InfoTest, TellsAxesTypeCalibrationAndFormat)
{
    const TemporaryFolder folder;
    const std::string file = folder / "a.tif";
    image::io::writeImage(file, makeCalibrated());
    const ProgramResult result = runOrlix({"info", file});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    const std::string bytes = std::to_string(std::filesystem::file_size(file));
    EXPECT_EQ(result.out, file +
                              "\n"
                              "  axes         x 7, y 5, z 3, c 2, t 4\n"
                              "  type         UInt16, 2 bytes per element in memory\n"
                              "  calibration  0.5 x 0.25 x 1.5 mm per pixel, origin 1, -2, 3 mm\n"
                              "  file         TIFF with OME-XML axes, 24 pages, 16 bits per sample, compression None, "
                              "strips, little endian, " +
                              bytes + " bytes\n");
}

TEST(InfoTest, JsonTellsTheSame)
{
    const TemporaryFolder folder;
    image::io::WriteOptions options;
    options.bTiled = true;
    options.bigTiff = image::io::eBigTiff::eAlways;
    options.byteOrder = image::io::eByteOrder::eBigEndian;
    options.compression = image::io::eTiffCompression::eLzw;
    image::io::writeImage(folder / "a.tif", makeCalibrated(), options);
    const ProgramResult result = runOrlix({"info", "--json", folder / "a.tif"});
    EXPECT_EQ(result.exitCode, 0);
    const JsonDocument list = parseJson(result.out);
    ASSERT_EQ(list.elements.size(), 1U);
    const JsonDocument& info = list[0];
    EXPECT_EQ(info["file"].text, folder / "a.tif");
    const double sizes[] = {7, 5, 3, 2, 4};
    for (unsigned axis = 0; axis < 5; ++axis) {
        EXPECT_EQ(info["size"][std::string(1, "xyzct"[axis])].number, sizes[axis]);
    }
    EXPECT_EQ(info["type"].text, "UInt16");
    EXPECT_EQ(info["bytesPerElement"].number, 2);
    EXPECT_EQ(info["calibration"]["unit"].text, "mm");
    EXPECT_EQ(info["calibration"]["pixelSize"]["y"].number, 0.25);
    EXPECT_EQ(info["calibration"]["origin"]["y"].number, -2);
    EXPECT_EQ(info["calibration"]["rotation"]["z"].number, 0);
    EXPECT_EQ(info["format"].text, "BigTIFF");
    EXPECT_EQ(info["metadata"].text, "OME-XML");
    EXPECT_EQ(info["pages"].number, 24);
    EXPECT_EQ(info["bitsPerSample"].number, 16);
    EXPECT_EQ(info["compression"].text, "LZW");
    EXPECT_EQ(info["tiled"].bValue, true);
    EXPECT_EQ(info["byteOrder"].text, "big");
    EXPECT_EQ(info["fileBytes"].number, static_cast<double>(std::filesystem::file_size(folder / "a.tif")));
}

TEST(InfoTest, PngWithoutCalibration)
{
    const TemporaryFolder folder;
    image::io::writeImage(folder / "a.png", makeNoise(*image::geometry5d(eImageBufferType::UInt8, 6, 4, 1, 3, 1)));
    const ProgramResult text = runOrlix({"info", folder / "a.png"});
    EXPECT_NE(text.out.find("x 6, y 4, z 1, c 3, t 1\n"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("calibration  none\n"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("file         PNG"), std::string::npos) << text.out;
    const JsonDocument list = parseJson(runOrlix({"info", "--json", folder / "a.png"}).out);
    EXPECT_TRUE(list[0]["calibration"].isNull());
    EXPECT_EQ(list[0]["format"].text, "PNG");
}

/// Every type comes back under its name.
TEST(InfoTest, NamesEveryType)
{
    const TemporaryFolder folder;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        image::io::writeImage(folder / "a.tif", makeNoise(*image::geometry2d(type, 9, 3)));
        const JsonDocument list = parseJson(runOrlix({"info", "--json", folder / "a.tif"}).out);
        EXPECT_EQ(list[0]["type"].text, image::getBufferTypeName(type));
    }
}

TEST(InfoTest, SoundFilesAreToldAlthoughOthersAreNot)
{
    const TemporaryFolder folder;
    image::io::writeImage(folder / "a.tif", makeCalibrated());
    const std::vector<std::string> files = {folder / "a.tif", folder / "missing.tif", folder / "a.tif"};
    const ProgramResult text = runOrlix({"info", files[0], files[1], files[2]});
    EXPECT_EQ(text.exitCode, 2);
    EXPECT_EQ(text.err.find("orlix: " + files[1] + ": can't be opened"), 0U);
    EXPECT_EQ(text.out, runOrlix({"info", files[0]}).out + runOrlix({"info", files[2]}).out);
    const ProgramResult json = runOrlix({"info", "--json", files[0], files[1], files[2]});
    EXPECT_EQ(json.exitCode, 2);
    EXPECT_EQ(json.err, text.err);
    EXPECT_EQ(parseJson(json.out).elements.size(), 2U);
}

/// What a file holds beside the image: two images of which one is read, another page, an orientation.
TEST(InfoTest, TellsWhatIsIgnored)
{
    const TemporaryFolder folder;
    const std::string file = folder / "a.tif";
    image::io::writeImage(file, makeNoise(*image::geometry3d(eImageBufferType::UInt8, 4, 4, 3)));
    EXPECT_EQ(runOrlix({"info", file}).out.find("ignored"), std::string::npos);
    const JsonDocument whole = parseJson(runOrlix({"info", "--json", file}).out);
    EXPECT_EQ(whole[0]["files"].number, 1);
    EXPECT_EQ(whole[0]["ignored"]["pages"].number, 0);
    EXPECT_EQ(whole[0]["ignored"]["orientation"].number, 1);
    EXPECT_TRUE(whole[0]["ignored"]["units"].isNull());

    // The description says two plans of three, in as many characters.
    std::string content = contentOf(file);
    for (const auto& [old, changed] :
         {std::pair("SizeZ=\"3\"", "SizeZ=\"2\""), {"PlaneCount=\"3\"", "PlaneCount=\"2\""}}) {
        content.replace(content.find(old), std::strlen(old), changed);
    }
    writeText(file, content);
    EXPECT_NE(runOrlix({"info", file}).out.find("\n  ignored      1 page that is no plan of this image\n"),
              std::string::npos);
    EXPECT_EQ(parseJson(runOrlix({"info", "--json", file}).out)[0]["ignored"]["pages"].number, 1);
}

/// Names of files are bytes; JSON is UTF-8.
TEST(InfoTest, JsonHoldsAnyFileName)
{
    const TemporaryFolder folder;
    const std::vector<std::pair<std::string, std::string>> names = {
        {"quote\"back\\slash.tif", "quote\"back\\slash.tif"},
        {"line\nend\ttab\x01.tif", "line\nend\ttab\x01.tif"},
        {"\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80.tif", "\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80.tif"},
        {"latin\xe4.tif", "latin\xef\xbf\xbd.tif"}};
    for (const auto& [name, told] : names) {
        image::io::writeImage(folder / name, makeNoise(*image::geometry2d(eImageBufferType::UInt8, 2, 2)));
        const ProgramResult result = runOrlix({"info", "--json", folder / name});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(parseJson(result.out)[0]["file"].text, folder / told);
    }
    const ProgramResult text = runOrlix({"info", folder / names[1].first});
    EXPECT_EQ(text.out.substr(0, text.out.find('\n')), folder / "line\\nend\\ttab\\x01.tif");
}

} // namespace
} // namespace orlix::test
