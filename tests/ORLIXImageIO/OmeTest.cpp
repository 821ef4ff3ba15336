// Pages as OME-XML describes them.
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

TEST(OmeTest, DimensionOrderPlacesPages)
{
    for (const std::string order : {"XYZCT", "XYZTC", "XYCZT", "XYCTZ", "XYTZC", "XYTCZ"}) {
        const ImagePtr image = imageOf(
            {.description = ome("DimensionOrder=\"" + order + "\" SizeZ=\"2\" SizeC=\"3\" SizeT=\"2\""), .pages = 12});
        ASSERT_EQ("3x2x2x3x2 UInt16", image->getGeometry().toString());
        forEachPixel(*image, [&](const Position& p) {
            unsigned long page = 0, step = 1;
            for (const char axis : order.substr(2)) {
                page += step * (axis == 'Z' ? p.z : axis == 'C' ? p.c : p.t);
                step *= axis == 'C' ? 3 : 2;
            }
            EXPECT_EQ(page * 100 + p.y * 3 + p.x, valueAt(*image, p)) << order;
        });
    }
}

TEST(OmeTest, TiffDataPlacesPages)
{
    const ImagePtr image = imageOf({.description = ome("DimensionOrder=\"XYZCT\" SizeZ=\"2\" SizeC=\"2\" SizeT=\"1\"",
                                                       "<Channel/><TiffData IFD=\"3\" FirstZ=\"1\" FirstC=\"1\"/>"
                                                       "<TiffData IFD=\"1\" FirstC=\"0\" PlaneCount=\"2\"/>"
                                                       "<TiffData IFD=\"0\" FirstC=\"1\"/>"),
                                    .pages = 4});
    EXPECT_EQ(1u, pageAt(*image, 0, 0, 0));
    EXPECT_EQ(2u, pageAt(*image, 1, 0, 0));
    EXPECT_EQ(0u, pageAt(*image, 0, 1, 0));
    EXPECT_EQ(3u, pageAt(*image, 1, 1, 0));

    // The first of two images; without TiffData the pages follow one another.
    const ImagePtr first = imageOf({.description = ome("SizeZ=\"2\" SizeC=\"1\" SizeT=\"1\"", ""), .pages = 3});
    EXPECT_EQ("3x2x2x1x1 UInt16", first->getGeometry().toString());
}

// Without a number of planes an element means all that follow, as many as there are.
TEST(OmeTest, TiffDataWithoutACountReachesToTheEnd)
{
    const ImagePtr image = imageOf(
        {.description = ome("SizeZ=\"3\" SizeC=\"1\" SizeT=\"1\"", "<TiffData FirstZ=\"1\"/><TiffData IFD=\"2\"/>"),
         .pages = 3});
    EXPECT_EQ(2u, pageAt(*image, 0, 0, 0));
    EXPECT_EQ(0u, pageAt(*image, 1, 0, 0));
    EXPECT_EQ(1u, pageAt(*image, 2, 0, 0));
}

TEST(OmeTest, SamplesAreChannelsOfAPage)
{
    const ImagePtr image =
        imageOf({.description = ome("DimensionOrder=\"XYCZT\" SizeZ=\"2\" SizeC=\"6\" SizeT=\"1\"",
                                    "<Channel SamplesPerPixel=\"3\"/><Channel SamplesPerPixel=\"3\"/>"
                                    "<TiffData/>"),
                 .pages = 4,
                 .samples = 3});
    ASSERT_EQ("3x2x2x6x1 UInt16", image->getGeometry().toString());
    forEachPixel(*image, [&](const Position& p) {
        EXPECT_EQ((p.z * 2 + p.c / 3) * 100 + p.c % 3 * 10 + p.y * 3 + p.x, valueAt(*image, p));
    });
}

TEST(OmeTest, PrefixedNamesAndByteOrderMarksAreRead)
{
    std::string text = ome("SizeZ=\"1\" SizeC=\"2\" SizeT=\"1\"");
    for (const std::string name : {"OME", "Image", "Pixels", "TiffData"}) {
        for (const std::string before : {"<", "</"}) {
            for (std::size_t at = 0; (at = text.find(before + name, at)) != text.npos; at += 5) {
                text.insert(at + before.size(), "ome:");
            }
        }
    }
    const ImagePtr image = imageOf({.description = "\xef\xbb\xbf" + text, .pages = 2});
    EXPECT_EQ("3x2x1x2x1 UInt16", image->getGeometry().toString());
}

TEST(OmeTest, PhysicalSizesAndUnits)
{
    const auto read = [](const std::string& sizes) {
        return imageOf({.description = ome("SizeZ=\"1\" SizeC=\"1\" SizeT=\"1\" " + sizes)})->getGeometricCalibration();
    };
    const auto micro = read("PhysicalSizeX=\"0.5\" PhysicalSizeY=\"1.0E-1\"");
    ASSERT_TRUE(micro);
    EXPECT_EQ("\u00b5m", micro->getUnit());
    EXPECT_EQ(0.5f, micro->getPixelSizeX());
    EXPECT_EQ(0.1f, micro->getPixelSizeY());
    EXPECT_FALSE(micro->is3d());
    const auto mixed = read("PhysicalSizeX=\"2\" PhysicalSizeXUnit=\"mm\" PhysicalSizeY=\"3\" PhysicalSizeYUnit=\"mm\" "
                            "PhysicalSizeZ=\"4\"");
    ASSERT_TRUE(mixed);
    EXPECT_EQ("mm", mixed->getUnit());
    EXPECT_TRUE(mixed->is3d());
    EXPECT_EQ(0.004f, mixed->getPixelSizeZ()); // micrometres, as nothing else is said
    EXPECT_EQ(2.f, read("PhysicalSizeX=\"2\"")->getPixelSizeY());
    EXPECT_EQ("px", read("PhysicalSizeX=\"2\" PhysicalSizeXUnit=\"pixel\"")->getUnit());
    EXPECT_FALSE(read("PhysicalSizeX=\"0\" PhysicalSizeY=\"1\""));
    EXPECT_FALSE(read("PhysicalSizeX=\"-1\" PhysicalSizeY=\"1\""));
    EXPECT_FALSE(read("PhysicalSizeX=\"INF\" PhysicalSizeY=\"1\""));
    EXPECT_FALSE(read("PhysicalSizeX=\"1e300\" PhysicalSizeY=\"1\""));
    EXPECT_FALSE(read("PhysicalSizeX=\"wide\" PhysicalSizeY=\"1\""));
    EXPECT_FALSE(read("PhysicalSizeX=\"1\" PhysicalSizeY=\"1\" PhysicalSizeZ=\"deep\""));
    EXPECT_FALSE(read("PhysicalSizeX=\"1\" PhysicalSizeY=\"1\" PhysicalSizeYUnit=\"reference frame\""));
    const auto flat = read("PhysicalSizeX=\"1\" PhysicalSizeZ=\"1\" PhysicalSizeZUnit=\"reference frame\"");
    ASSERT_TRUE(flat);
    EXPECT_FALSE(flat->is3d());
    EXPECT_FALSE(read(""));
}

TEST(OmeTest, WrongDescriptionsAreRefused)
{
    const auto failure = [](const std::string& description, unsigned pages = 2) {
        return failureOf([&] { (void)imageOf({.description = description, .pages = pages}); });
    };
    EXPECT_TRUE(contains(failure("<OME><Image>"), "it is no XML"));
    EXPECT_TRUE(contains(failure("<OME></OME>"), "it tells of no image"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"3\"")),
                         "tells of 3 plans, 1 channels and 1 time steps, but the file has 2 pages"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"0\"")), "tells of 0 plans"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"3\"", "<TiffData IFD=\"0\"/><TiffData IFD=\"1\" FirstZ=\"1\"/>")),
                         "but the file has 2 pages"))
        << "which both elements are about";
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"4294967296\" SizeC=\"4294967296\" SizeT=\"4294967296\"")),
                         "but the file has 2 pages"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"two\"")), "SizeZ must be a whole number, but is \"two\""));
    EXPECT_TRUE(contains(failure(ome("DimensionOrder=\"XYZZT\"")), "DimensionOrder"));
    EXPECT_TRUE(contains(failure(ome("DimensionOrder=\"ZYXCT\"")), "DimensionOrder"));
    std::string wide = ome("SizeZ=\"2\"");
    wide.replace(wide.find("SizeX=\"3\""), 9, "SizeX=\"4\"");
    EXPECT_TRUE(contains(failure(wide), "SizeX is 4, but in the pages it is 3"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"2\"", "<TiffData IFD=\"0\"/>")), "no page for the plan z=1, c=0, t=0"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"2\"", "<TiffData IFD=\"7\"/>")), "pages 7 and following"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"2\"", "<TiffData FirstZ=\"2\"/>")), "must be below SizeZ"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"2\"", "<TiffData PlaneCount=\"18446744073709551615\"/>")),
                         "18446744073709551615 in all"));
    EXPECT_TRUE(contains(failure(ome("SizeZ=\"2\"", "<TiffData/><TiffData IFD=\"0\"/>")), "for one plan"));
    EXPECT_TRUE(
        contains(failure(ome("SizeZ=\"2\"", "<TiffData FirstZ=\"1\" PlaneCount=\"2\"/>")),
                 "pages 0 and following, 2 in all, are told of, but the file has 2 pages and the image 2 plans"));
    EXPECT_TRUE(
        contains(failure(ome("SizeZ=\"2\"", "<TiffData><UUID FileName=\"b.ome.tif\">urn:uuid:2</UUID></TiffData>",
                             " UUID=\"urn:uuid:1\"")),
                 "another file, b.ome.tif, which is not read (there is no such file beside it)"));
    EXPECT_TRUE(contains(failure("<OME><BinaryOnly MetadataFile=\"x.companion.ome\"/></OME>"), "x.companion.ome"));
}

TEST(OmeTest, FilesOfTheirOwnAreRead)
{
    const ImagePtr image =
        imageOf({.description = ome("SizeZ=\"2\"", "<TiffData><UUID FileName=\"a.tif\">urn:uuid:1</UUID></TiffData>",
                                    " UUID=\"urn:uuid:1\""),
                 .pages = 2});
    EXPECT_EQ("3x2x2x1x1 UInt16", image->getGeometry().toString());
}

// A later program that changed sizes but kept our annotation: what it says counts.
TEST(OmeTest, StaleAnnotationsAreNotFollowed)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry2d(eImageBufferType::eBufferUInt16Like, 4, 4), 1);
    auto calibration = boost::shared_ptr<GeometricCalibration>(new GeometricCalibration);
    calibration->init2d("micron", 2, 2, 5, 5);
    image->setGeometricCalibration(calibration);
    writeImage(folder / "a.tif", image);
    std::string content = contentOf(folder / "a.tif");
    const auto at = content.find("PhysicalSizeX=\"2\"");
    ASSERT_NE(content.npos, at);
    content[at + 15] = '3';
    const ImagePtr changed = readTiff(bytesOf(content));
    EXPECT_EQ(eImageBufferType::eBufferUInt16Like, changed->getBufferType());
    EXPECT_EQ(3.f, changed->getGeometricCalibration()->getPixelSizeX());
    EXPECT_EQ("\u00b5m", changed->getGeometricCalibration()->getUnit());
    EXPECT_EQ(0.f, changed->getGeometricCalibration()->getOriginX());

    const auto type = content.find("\"UInt16Like\"");
    ASSERT_NE(content.npos, type);
    content.replace(type, 12, "\"UInt32Like\"");
    EXPECT_EQ(eImageBufferType::UInt16, readTiff(bytesOf(content))->getBufferType());
}
