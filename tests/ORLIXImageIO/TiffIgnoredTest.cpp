// What a file holds beside the image that is read: it is told, and changes no pixel.
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

using Ignored = ImageFileInfo::Ignored;

Ignored ignoredIn(const std::string& content)
{
    const TestFolder folder;
    putContent(folder / "a.tif", content);
    return readImageInfo(folder / "a.tif").ignored;
}

// 2x2 pixels of UInt8 from 1 to 4, as grey or as YCbCr with as many greys.
std::string turnedPage(unsigned orientation, bool bColour)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 2, 2, 8, bColour ? 3 : 1, bColour ? 6 : 1);
    tiff.addShort(274, orientation);
    if (bColour) {
        tiff.addShorts(530, {1, 1}); // no subsampling
    }
    std::string strip;
    for (const char value : {1, 2, 3, 4}) {
        strip += bColour ? std::string{static_cast<char>(value * 20), '\x80', '\x80'} : std::string{value};
    }
    tiff.addBlocks({strip});
    tiff.endPage();
    return tiff.getData();
}

} // namespace

TEST(TiffIgnoredTest, NothingInAPlainFile)
{
    EXPECT_EQ(Ignored(), ignoredIn(fileOf({.pages = 3})));
    EXPECT_EQ(Ignored(), ignoredIn(fileOf({.description = ome("SizeZ=\"2\""), .pages = 2})));
    EXPECT_EQ(Ignored(), ignoredIn(fileOf({.description = "ImageJ=1.53c\nimages=2\n", .rawPlans = 1})));
}

TEST(TiffIgnoredTest, OrientationIsToldAndTurnsNothing)
{
    for (unsigned orientation = 1; orientation <= 8; ++orientation) {
        for (const bool bColour : {false, true}) {
            EXPECT_EQ(orientation, ignoredIn(turnedPage(orientation, bColour)).orientation);
            const ImagePtr image = readTiff(bytesOf(turnedPage(orientation, bColour)));
            forEachPixel(*image, [&](const Position& p) {
                const double value = static_cast<double>(p.y * 2 + p.x + 1);
                EXPECT_NEAR(bColour ? value * 20 : value, valueAt(*image, p), bColour ? 1 : 0) << orientation;
            });
        }
    }
}

TEST(TiffIgnoredTest, FurtherImagesAndTheirPages)
{
    std::string text = ome("SizeZ=\"2\"", "<TiffData IFD=\"0\" PlaneCount=\"2\"/>");
    text.insert(text.find("</OME>"), "<Image><Pixels SizeX=\"3\" SizeY=\"2\"><TiffData IFD=\"2\"/></Pixels></Image>"
                                     "<Image><Pixels SizeX=\"3\" SizeY=\"2\"><TiffData IFD=\"3\"/></Pixels></Image>");
    Ignored expected;
    expected.images = 2;
    expected.pages = 2;
    EXPECT_EQ(expected, ignoredIn(fileOf({.description = text, .pages = 4})));
}

TEST(TiffIgnoredTest, ReducedCopies)
{
    Ignored expected;
    expected.reduced = 1;
    EXPECT_EQ(expected, ignoredIn(fileOf({.pages = 3, .reducedPage = 1})));
    EXPECT_EQ(expected, ignoredIn(fileOf({.description = ome("SizeZ=\"2\""), .pages = 3, .reducedPage = 2})));

    TinyTiff tiff;
    for (unsigned page = 0; page < 2; ++page) {
        tiff.beginPage();
        addPageTags(tiff, 1, 1, 8, 1, 1);
        tiff.addLongs(330, {8, 8, 8}); // smaller copies in directories of their own
        tiff.addBlocks({"x"});
        tiff.endPage();
    }
    expected.reduced = 6;
    EXPECT_EQ(expected, ignoredIn(tiff.getData()));
}

TEST(TiffIgnoredTest, OfTurnedPagesTheFirstIsTold)
{
    const auto orientationIn = [](const std::vector<unsigned>& orientations) {
        TinyTiff tiff;
        for (const unsigned orientation : orientations) {
            tiff.beginPage();
            addPageTags(tiff, 1, 1, 8, 1, 1);
            tiff.addShort(274, orientation);
            tiff.addBlocks({"x"});
            tiff.endPage();
        }
        return ignoredIn(tiff.getData()).orientation;
    };
    EXPECT_EQ(6u, orientationIn({1, 6, 1}));
    EXPECT_EQ(3u, orientationIn({1, 3, 8}));
}

// Plans behind the only page have its orientation and its smaller copies.
TEST(TiffIgnoredTest, RawStacks)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 1, 1, 8, 1, 1);
    tiff.addText(g_tagDescription, "ImageJ=1.53c\nimages=3\n");
    tiff.addShort(274, 5);
    tiff.addLongs(330, {8, 8});
    tiff.addBlocks({"x"});
    tiff.addData("yz");
    tiff.endPage();
    Ignored expected;
    expected.orientation = 5;
    expected.reduced = 2;
    EXPECT_EQ(expected, ignoredIn(tiff.getData()));
}
