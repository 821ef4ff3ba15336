// Pages as plans: plain, ImageJ's way and OME-XML's way.
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

TEST(TiffPagesTest, PlainPagesAreZ)
{
    const ImagePtr image = imageOf({.pages = 4});
    ASSERT_EQ("3x2x4x1x1 UInt16", image->getGeometry().toString());
    for (unsigned z = 0; z < 4; ++z) {
        EXPECT_EQ(z, pageAt(*image, z, 0, 0));
    }
    EXPECT_TRUE(image->getGeometry().getVolumeGeometry().is3d());
    EXPECT_FALSE(imageOf({})->getGeometry().getVolumeGeometry().is3d());
    EXPECT_FALSE(image->getGeometry().getTemporalGeometry().isSequence());
}

TEST(TiffPagesTest, ReducedPagesAreLeftOut)
{
    const ImagePtr image = imageOf({.pages = 3, .reducedPage = 1});
    ASSERT_EQ("3x2x2x1x1 UInt16", image->getGeometry().toString());
    EXPECT_EQ(0u, pageAt(*image, 0, 0, 0));
    EXPECT_EQ(2u, pageAt(*image, 1, 0, 0));
    EXPECT_EQ("1x1x1x1x1 UInt16", imageOf({.reducedPage = 0})->getGeometry().toString());
}

TEST(TiffPagesTest, PagesOfDifferentSizeAreRefused)
{
    TinyTiff tiff;
    for (const unsigned width : {3u, 4u}) {
        tiff.beginPage();
        addPageTags(tiff, width, 1, 8, 1, 1);
        tiff.addBlocks({std::string(width, 'x')});
        tiff.endPage();
    }
    const std::string text = failureOf([&] { (void)readTiff(bytesOf(tiff.getData())); });
    EXPECT_TRUE(contains(text, "page 0 has 3x1 pixels"));
    EXPECT_TRUE(contains(text, "page 1 has 4x1 pixels"));
}

TEST(TiffPagesTest, PagesOfDifferentKindAreRefused)
{
    struct Kind
    {
        unsigned height = 2, bits = 8, samples = 1;
    };
    const auto fileOf = [](const Kind& second) {
        TinyTiff tiff;
        for (const Kind& kind : {Kind(), second}) {
            tiff.beginPage();
            addPageTags(tiff, 3, kind.height, kind.bits, kind.samples, kind.samples == 3 ? 2 : 1);
            tiff.addBlocks({std::string(3ul * kind.height * kind.samples * kind.bits / 8, 'x')});
            tiff.endPage();
        }
        return tiff.getData();
    };
    EXPECT_EQ("3x2x2x1x1 UInt8", readTiff(bytesOf(fileOf({})))->getGeometry().toString());
    for (const auto& [kind, text] : {std::pair(Kind{.height = 3}, "page 1 has 3x3 pixels"),
                                     {Kind{.bits = 16}, "page 1 has 3x2 pixels of 1 grey sample, unsigned, 16 bits"},
                                     {Kind{.samples = 3}, "page 1 has 3x2 pixels of 3 RGB samples"}}) {
        EXPECT_TRUE(contains(failureOf([&, &kind = kind] { (void)readTiff(bytesOf(fileOf(kind))); }), text));
    }
}

TEST(TiffPagesTest, ResolutionGivesPixelSizes)
{
    const auto calibration = imageOf({.resolutionUnit = 3, .perUnit = {40, 1}})->getGeometricCalibration();
    ASSERT_TRUE(calibration);
    EXPECT_EQ("cm", calibration->getUnit());
    EXPECT_EQ(1.f / 40, calibration->getPixelSizeX());
    EXPECT_EQ(1.f / 80, calibration->getPixelSizeY());
    EXPECT_FALSE(calibration->is3d());
    EXPECT_EQ("inch", imageOf({.resolutionUnit = 2, .perUnit = {300, 1}})->getGeometricCalibration()->getUnit());
    EXPECT_FALSE(imageOf({.resolutionUnit = 1, .perUnit = {40, 1}})->hasGeometricCalibration()); // a mere ratio
    EXPECT_FALSE(imageOf({.resolutionUnit = 3, .perUnit = {0, 1}})->hasGeometricCalibration());
    EXPECT_FALSE(imageOf({})->hasGeometricCalibration());
}

TEST(TiffPagesTest, ScreenResolutionsAreNoMeasurements)
{
    for (const std::uint32_t perInch : {72u, 96u}) {
        EXPECT_FALSE(imageOf({.resolutionUnit = 2, .perUnit = {perInch, 1}, .ratio = 1})->hasGeometricCalibration());
        EXPECT_FALSE(
            imageOf({.description = "ImageJ=1.53c\n", .resolutionUnit = 2, .perUnit = {perInch, 1}, .ratio = 1})
                ->hasGeometricCalibration());
        EXPECT_TRUE(imageOf({.resolutionUnit = 2, .perUnit = {perInch, 1}})->hasGeometricCalibration());
        EXPECT_TRUE(
            imageOf(
                {.description = "ImageJ=1.53c\nunit=inch\n", .resolutionUnit = 2, .perUnit = {perInch, 1}, .ratio = 1})
                ->hasGeometricCalibration());
    }
    EXPECT_FALSE(imageOf({.resolutionUnit = 3, .perUnit = {2834, 100}, .ratio = 1})->hasGeometricCalibration());
}

TEST(ImageJTest, AxesRunChannelsFirst)
{
    const ImagePtr image = imageOf({.description = "ImageJ=1.53c\nimages=12\nchannels=2\nslices=3\nframes=2\n"
                                                   "hyperstack=true\nloop=false\n",
                                    .pages = 12});
    ASSERT_EQ("3x2x3x2x2 UInt16", image->getGeometry().toString());
    for (unsigned t = 0, page = 0; t < 2; ++t) {
        for (unsigned z = 0; z < 3; ++z) {
            for (unsigned c = 0; c < 2; ++c, ++page) {
                EXPECT_EQ(page, pageAt(*image, z, c, t));
            }
        }
    }
    EXPECT_EQ("3x2x5x1x1 UInt16",
              imageOf({.description = "ImageJ=1.4\nimages=5\n", .pages = 5})->getGeometry().toString());
    EXPECT_EQ("3x2x1x1x5 UInt16",
              imageOf({.description = "ImageJ=1.4\nimages=5\nframes=5\n", .pages = 5})->getGeometry().toString());
    EXPECT_EQ("3x2x1x6x1 UInt16",
              imageOf({.description = "ImageJ=1.4\nimages=2\nchannels=2\n", .pages = 2, .samples = 3})
                  ->getGeometry()
                  .toString());
}

TEST(ImageJTest, CalibrationComesFromUnitSpacingAndResolution)
{
    const auto read = [](const std::string& lines, unsigned resolutionUnit, std::uint32_t perUnit) {
        return imageOf({.description = "ImageJ=1.53c\nimages=2\nslices=2\n" + lines,
                        .pages = 2,
                        .resolutionUnit = resolutionUnit,
                        .perUnit = {perUnit, 1000}})
            ->getGeometricCalibration();
    };
    const auto full = read("unit=\\u00B5m\nspacing=-2.5\n", 1, 4000);
    ASSERT_TRUE(full);
    EXPECT_EQ("\u00b5m", full->getUnit());
    EXPECT_TRUE(full->is3d());
    EXPECT_EQ(0.25f, full->getPixelSizeX());
    EXPECT_EQ(0.125f, full->getPixelSizeY());
    EXPECT_EQ(2.5f, full->getPixelSizeZ());

    EXPECT_EQ("\u00b5m", read("unit=\xb5m\n", 1, 4000)->getUnit());     // Latin-1, old versions
    EXPECT_EQ("\u00b5m", read("unit=\xc2\xb5m\n", 1, 4000)->getUnit()); // UTF-8
    EXPECT_EQ("\u212b", read("unit=\\u212B\n", 1, 4000)->getUnit());
    EXPECT_EQ("a\\uzz", read("unit=a\\uzz\n", 1, 4000)->getUnit());
    EXPECT_EQ(1.f, read("unit=mm\n", 1, 4000)->getPixelSizeZ()); // ImageJ leaves out a spacing of 1
    EXPECT_EQ("px", read("spacing=3\n", 0, 0)->getUnit());
    EXPECT_EQ(1.f, read("spacing=3\n", 0, 0)->getPixelSizeX());
    EXPECT_FALSE(read("unit= \n", 0, 0));
    EXPECT_FALSE(read("unit=pixel\n", 0, 0));
    EXPECT_EQ("inch", read("", 2, 300000)->getUnit());
}

// The sizes along y and z may have units of their own; here x is 1/4, y 1/8 and z 2.5 of theirs.
TEST(ImageJTest, UnitsOfAxesAreConverted)
{
    const auto fileIn = [](const std::string& units, unsigned slices) {
        return fileOf({.description = "ImageJ=1.53c\nimages=2\n" + std::string(slices == 2 ? "slices" : "frames") +
                                      "=2\nspacing=2.5\n" + units,
                       .pages = 2,
                       .resolutionUnit = 1,
                       .perUnit = {4000, 1000}});
    };
    const auto read = [&](const std::string& units) {
        return readTiff(bytesOf(fileIn(units, 2)))->getGeometricCalibration();
    };
    const auto mixed = read("unit=mm\nyunit=\\u00B5m\nzunit=nm\n");
    ASSERT_TRUE(mixed);
    EXPECT_EQ("mm", mixed->getUnit());
    EXPECT_FLOAT_EQ(0.25f, mixed->getPixelSizeX());
    EXPECT_FLOAT_EQ(0.000125f, mixed->getPixelSizeY());
    EXPECT_FLOAT_EQ(0.0000025f, mixed->getPixelSizeZ());
    const auto micro = read("unit=micron\nzunit=mm\n");
    ASSERT_TRUE(micro);
    EXPECT_EQ(0.125f, micro->getPixelSizeY());
    EXPECT_FLOAT_EQ(2500.f, micro->getPixelSizeZ());
    EXPECT_EQ(2.5f, read("unit=micron\nyunit=um\nzunit=\\u00B5m\n")->getPixelSizeZ()); // three names of one unit
    EXPECT_EQ(2.5f, read("unit=furlong\nyunit=furlong\nzunit=furlong\n")->getPixelSizeZ());

    // What doesn't convert: z leaves x and y, y leaves nothing.
    const auto flat = read("unit=mm\nzunit=sec\n");
    ASSERT_TRUE(flat);
    EXPECT_FALSE(flat->is3d());
    EXPECT_EQ(0.125f, flat->getPixelSizeY());
    EXPECT_FALSE(read("unit=mm\nyunit=sec\n"));
    EXPECT_FALSE(read("zunit=mm\n")->is3d()); // pixels and millimetres
    const TestFolder folder;
    const auto ignoredIn = [&](const std::string& units, unsigned slices) {
        putContent(folder / "a.tif", fileIn(units, slices));
        return readImageInfo(folder / "a.tif").ignored.units;
    };
    EXPECT_EQ("z in sec", ignoredIn("unit=mm\nzunit=sec\n", 2));
    EXPECT_EQ("", ignoredIn("unit=mm\nzunit=sec\n", 1)); // there is no z
    EXPECT_EQ("y in sec, z in kg", ignoredIn("unit=mm\nyunit=sec\nzunit=kg\n", 2));
    EXPECT_EQ("", ignoredIn("unit=mm\nyunit=nm\n", 2));
}

TEST(ImageJTest, RawStacksFollowOnePage)
{
    for (const bool bBigEndian : {false, true}) {
        for (const unsigned samples : {1u, 3u}) {
            const ImagePtr image = imageOf({.description = "ImageJ=1.53c\nimages=6\nslices=3\nframes=2\n",
                                            .samples = samples,
                                            .rawPlans = 5,
                                            .bBigEndian = bBigEndian});
            ASSERT_EQ("3x2x3x" + std::to_string(samples) + "x2 UInt16", image->getGeometry().toString());
            forEachPixel(*image, [&](const Position& p) {
                EXPECT_EQ((p.t * 3 + p.z) * 100 + p.c * 10 + p.y * 3 + p.x, valueAt(*image, p));
            });
        }
    }
}

// One sample is as good as in a plane of its own.
TEST(ImageJTest, RawStacksOfOneSampleInAPlane)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 2, 1, 8, 1, 1);
    tiff.addShort(g_tagPlanar, 2);
    tiff.addText(g_tagDescription, "ImageJ=1.53c\nimages=2\n");
    tiff.addBlocks({"ab"});
    tiff.addData("cd");
    tiff.endPage();
    EXPECT_EQ('d', valueAt(*readTiff(bytesOf(tiff.getData())), {1, 0, 1, 0, 0}));
}

// Signed samples of 16 bits, as ImageJ keeps them: unsigned, with a line from -32768 on through them.
TEST(ImageJTest, LinesThroughUnsignedSamplesGiveSignedOnes)
{
    const auto firstOf = [](const std::string& lines, unsigned rawPlans) {
        const ImagePtr image = imageOf({.description = "ImageJ=1.53c\nimages=2\n" + lines,
                                        .pages = rawPlans == 0 ? 2u : 1u,
                                        .rawPlans = rawPlans});
        EXPECT_EQ(eImageBufferType::Int16, image->getBufferType());
        return valueAt(*image, {1, 1, 1, 0, 0});
    };
    const std::string line = "cf=0\nc0=-32768.0\nc1=1.0\nvunit=Gray Value\n";
    EXPECT_EQ(104 - 32768, firstOf(line, 0));
    EXPECT_EQ(104 - 32768, firstOf(line, 1));
    for (const std::string other :
         {"cf=0\nc0=-32768.0\nc1=2.0\n", "cf=0\nc0=1\nc1=1.0\n", "cf=1\nc0=-32768\nc1=1\n", "cf=0\nc1=1.0\n"}) {
        EXPECT_EQ(eImageBufferType::UInt16, imageOf({.description = "ImageJ=1.53c\n" + other})->getBufferType());
    }
}

TEST(ImageJTest, ContradictionsAreRefused)
{
    const auto failure = [](const std::string& lines, unsigned pages, unsigned rawPlans = 0) {
        return failureOf(
            [&] { (void)imageOf({.description = "ImageJ=1.53c\n" + lines, .pages = pages, .rawPlans = rawPlans}); });
    };
    EXPECT_TRUE(contains(failure("images=6\nslices=4\n", 6), "must multiply to images (6)"));
    EXPECT_TRUE(contains(failure("images=3\n", 2), "tells of 3 images, but the file has 2 pages"));
    EXPECT_TRUE(contains(failure("images=x\n", 1), "images must be a whole number above 0, but is \"x\""));
    EXPECT_TRUE(contains(failure("images=0\n", 1), "above 0"));
    EXPECT_TRUE(contains(failure("images=4\n", 1, 1), "claims 48 bytes"));
    EXPECT_TRUE(contains(failure("images=4611686018427387904\n", 1), "bytes"));
    EXPECT_TRUE(contains(failure("images=18446744073709551615\nchannels=18446744073709551615\n", 1), "bytes"));
}

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
