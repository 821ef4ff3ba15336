// OME-TIFF over several files: each plan comes from the file that the description names, or the image is refused.
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

std::string uuidElement(const std::string& name, const std::string& uuid)
{
    return "<UUID" + (name.empty() ? std::string() : " FileName=\"" + name + "\"") + ">" + uuid + "</UUID>";
}

std::string tiffData(unsigned z, unsigned page, const std::string& name, const std::string& uuid)
{
    return "<TiffData FirstZ=\"" + std::to_string(z) + "\" IFD=\"" + std::to_string(page) + "\">" +
           uuidElement(name, uuid) + "</TiffData>";
}

// As `fileOf`, with `base` added to every value.
std::string fileOf(const std::string& description, unsigned pages, unsigned base)
{
    TinyTiff tiff;
    for (unsigned page = 0; page < pages; ++page) {
        tiff.beginPage();
        addPageTags(tiff, 3, 2, 16, 1, 1);
        if (page == 0 && !description.empty()) {
            tiff.addText(g_tagDescription, description);
        }
        std::string strip;
        for (unsigned i = 0; i < 6; ++i) {
            strip += tiff.number(2, base + page * 100 + i);
        }
        tiff.addBlocks({strip});
        tiff.endPage();
    }
    return tiff.getData();
}

class OmeFilesTest : public ::testing::Test
{
protected:
    void put(const std::string& name, const std::string& description, unsigned pages, unsigned base)
    {
        putContent(m_folder / name, fileOf(description, pages, base));
    }

    /// First values of the plans along z.
    std::vector<double> firstsOf(const std::string& name) const
    {
        const ImagePtr image = readImage(m_folder / name);
        EXPECT_EQ(image->getGeometry().toString(), readImageInfo(m_folder / name).geometry.toString());
        std::vector<double> firsts;
        for (unsigned long z = 0; z < image->getSizeZ(); ++z) {
            firsts.push_back(valueAt(*image, {0, 0, z, 0, 0}));
            EXPECT_EQ(firsts.back() + 5, valueAt(*image, {2, 1, z, 0, 0}));
        }
        return firsts;
    }

    std::string refusalOf(const std::string& name) const
    {
        return failureOf([&] { (void)readImage(m_folder / name); });
    }

    const TestFolder m_folder;
};

using Values = std::vector<double>;

} // namespace

TEST_F(OmeFilesTest, PlansComeFromTheFilesThatAreNamed)
{
    // Interleaved, so that the order of plans is not that of files.
    const std::string data = tiffData(0, 1, "b.tif", "urn:uuid:b") + tiffData(1, 0, "a.tif", "urn:uuid:a") +
                             tiffData(2, 0, "b.tif", "urn:uuid:b") + tiffData(3, 1, "a.tif", "urn:uuid:a");
    for (const bool bRootTells : {true, false}) {
        const auto rootOf = [&](const std::string& uuid) {
            return bRootTells ? " UUID=\"" + uuid + "\"" : std::string();
        };
        put("a.tif", ome("SizeZ=\"4\"", data, rootOf("urn:uuid:a")), 2, 1000);
        put("b.tif", ome("SizeZ=\"4\"", data, rootOf("urn:uuid:b")), 2, 2000);
        EXPECT_EQ((Values{2100, 1000, 2000, 1100}), firstsOf("a.tif")) << bRootTells;
        EXPECT_EQ((Values{2100, 1000, 2000, 1100}), firstsOf("b.tif")) << bRootTells;
    }
}

TEST_F(OmeFilesTest, NamesAloneAreFollowed)
{
    const std::string data = tiffData(0, 0, "a.tif", "") + tiffData(1, 0, "b.tif", "");
    put("a.tif", ome("SizeZ=\"2\"", data), 1, 1000);
    put("b.tif", "", 1, 2000); // says nothing of itself
    EXPECT_EQ((Values{1000, 2000}), firstsOf("a.tif"));
    // An element that names no file means its own.
    put("a.tif", ome("SizeZ=\"2\"", "<TiffData IFD=\"0\" FirstZ=\"1\"/>" + tiffData(0, 0, "b.tif", "")), 1, 1000);
    EXPECT_EQ((Values{2000, 1000}), firstsOf("a.tif"));
}

TEST_F(OmeFilesTest, MorePlansThanTheFileHasPages)
{
    std::string data;
    Values expected;
    for (unsigned z = 0; z < 40; ++z) {
        data += tiffData(z, 0, "part" + std::to_string(z) + ".tif", "urn:uuid:" + std::to_string(z));
        expected.push_back(z * 1000);
    }
    for (unsigned z = 0; z < 40; ++z) {
        put("part" + std::to_string(z) + ".tif",
            ome("SizeZ=\"40\"", data, " UUID=\"urn:uuid:" + std::to_string(z) + "\""), 1, z * 1000);
    }
    EXPECT_EQ(expected, firstsOf("part0.tif"));
    EXPECT_EQ(expected, firstsOf("part39.tif"));
}

TEST_F(OmeFilesTest, OneFileThatWasRenamedIsRead)
{
    put("renamed.tif",
        ome("SizeZ=\"2\"", tiffData(0, 0, "a.tif", "urn:uuid:a") + tiffData(1, 1, "a.tif", "urn:uuid:a")), 2, 1000);
    EXPECT_EQ((Values{1000, 1100}), firstsOf("renamed.tif"));
}

TEST_F(OmeFilesTest, FilesThatAreNotThereAreNamed)
{
    const std::string data = tiffData(0, 0, "a.tif", "urn:uuid:a") + tiffData(1, 0, "b.tif", "urn:uuid:b");
    put("a.tif", ome("SizeZ=\"2\"", data), 2, 1000);
    EXPECT_TRUE(contains(refusalOf("a.tif"), "another file, b.tif, which is not read (there is no such file"));
    // Without a name, or in memory, nothing can be looked up.
    const std::string nameless = tiffData(0, 0, "", "urn:uuid:a") + tiffData(1, 0, "", "urn:uuid:b");
    put("a.tif", ome("SizeZ=\"2\"", nameless), 2, 1000);
    EXPECT_TRUE(contains(refusalOf("a.tif"), "another file, urn:uuid:a, which is not read (only its UUID is told)"));
    const std::string content = fileOf(ome("SizeZ=\"2\"", data), 2, 1000);
    EXPECT_TRUE(contains(failureOf([&] { (void)readTiff(bytesOf(content)); }), "memory: its OME-XML"));
}

TEST_F(OmeFilesTest, NoNameLeadsOutOfTheFolder)
{
    boost::filesystem::create_directory(m_folder / "inner");
    put("b.tif", "", 1, 2000);
    put("inner/b.tif", "", 1, 2000);
    for (const std::string& name : {std::string("../b.tif"), (m_folder / "b.tif").string(), std::string("..\\b.tif"),
                                    std::string(".."), std::string("."), std::string("./b.tif")}) {
        put("inner/a.tif", ome("SizeZ=\"2\"", tiffData(0, 0, "a.tif", "") + tiffData(1, 0, name, "")), 1, 1000);
        EXPECT_TRUE(contains(refusalOf("inner/a.tif"), "another file, " + name + ", which is not read (it has to be"));
    }
    put("inner/a.tif", ome("SizeZ=\"2\"", tiffData(0, 0, "a.tif", "") + tiffData(1, 0, "b.tif", "")), 1, 1000);
    EXPECT_EQ((Values{1000, 2000}), firstsOf("inner/a.tif"));
}

TEST_F(OmeFilesTest, FilesThatAreSomethingElseAreRefused)
{
    const std::string data = tiffData(0, 0, "a.tif", "urn:uuid:a") + tiffData(1, 0, "b.tif", "urn:uuid:b");
    put("a.tif", ome("SizeZ=\"2\"", data), 1, 1000);
    put("b.tif", ome("SizeZ=\"2\"", data, " UUID=\"urn:uuid:other\""), 1, 2000);
    EXPECT_TRUE(contains(refusalOf("a.tif"), "its UUID has to be urn:uuid:b, but is urn:uuid:other"));
    put("b.tif", ome("SizeZ=\"2\"", data, " UUID=\"urn:uuid:c\""), 1, 2000);
    EXPECT_TRUE(contains(refusalOf("a.tif"), "its UUID has to be urn:uuid:b, but is urn:uuid:c"));
    // A UUID counts, whatever name stands beside it.
    put("d.tif", ome("SizeZ=\"1\"", tiffData(0, 0, "d.tif", "urn:uuid:a"), " UUID=\"urn:uuid:d\""), 1, 1000);
    EXPECT_TRUE(contains(refusalOf("d.tif"), "its UUID has to be urn:uuid:a, but is urn:uuid:d"));
    putContent(m_folder / "b.tif", "no TIFF file");
    EXPECT_TRUE(contains(refusalOf("a.tif"), (m_folder / "b.tif").string() + ": page 0 can't be read"));
    putContent(m_folder / "b.tif", fileOf("", 1, 2000).substr(0, 60));
    EXPECT_TRUE(contains(refusalOf("a.tif"), (m_folder / "b.tif").string()));
    // A page of another size, and one that the other file lacks.
    TinyTiff wide;
    wide.beginPage();
    addPageTags(wide, 4, 2, 16, 1, 1);
    wide.addBlocks({std::string(16, 'x')});
    wide.endPage();
    putContent(m_folder / "b.tif", wide.getData());
    EXPECT_TRUE(contains(refusalOf("a.tif"), "page 0 has 4x2 pixels"));
    put("b.tif", "", 1, 2000);
    put("a.tif", ome("SizeZ=\"2\"", tiffData(0, 0, "a.tif", "") + tiffData(1, 1, "b.tif", "")), 2, 1000);
    EXPECT_TRUE(contains(refusalOf("a.tif"), "pages 1 and following, 1 in all, are told of, but the file has 1 pages"));
}

// Of several images in several files, a file's own is meant.
TEST_F(OmeFilesTest, TheImageOfTheFileIsRead)
{
    const auto image = [](const std::string& name, const std::string& uuid) {
        return "<Image><Pixels SizeX=\"3\" SizeY=\"2\" SizeZ=\"2\"><TiffData IFD=\"0\" PlaneCount=\"2\">" +
               uuidElement(name, uuid) + "</TiffData></Pixels></Image>";
    };
    const std::string images = image("a.tif", "urn:uuid:a") + image("b.tif", "urn:uuid:b");
    put("a.tif", "<OME>" + images + "</OME>", 2, 1000);
    put("b.tif", "<OME>" + images + "</OME>", 2, 2000);
    put("c.tif", "<OME UUID=\"urn:uuid:c\">" + images + "</OME>", 2, 3000);
    EXPECT_EQ((Values{1000, 1100}), firstsOf("a.tif"));
    EXPECT_EQ((Values{2000, 2100}), firstsOf("b.tif"));
    EXPECT_EQ((Values{1000, 1100}), firstsOf("c.tif"));
}

// Pages of another file use none of the file's own.
TEST_F(OmeFilesTest, PagesThatNothingUsesAreTold)
{
    const std::string data = tiffData(0, 0, "a.tif", "") + tiffData(1, 1, "b.tif", "");
    put("a.tif", ome("SizeZ=\"2\"", data), 3, 1000);
    put("b.tif", "", 2, 2000);
    EXPECT_EQ((Values{1000, 2100}), firstsOf("a.tif"));
    EXPECT_EQ(2u, readImageInfo(m_folder / "a.tif").ignored.pages);
}

// What pages claim is held against the bytes of the file that they lie in.
TEST_F(OmeFilesTest, ASmallFileMayNameALargeOne)
{
    constexpr unsigned long side = 64;
    std::string rows, description = ome("SizeZ=\"2\"", tiffData(0, 0, "a.tif", "") + tiffData(1, 0, "b.tif", ""));
    for (const char* const size : {"SizeX=\"3\"", "SizeY=\"2\""}) {
        description.replace(description.find(size) + 7, 1, "64");
    }
    for (unsigned long y = 0; y < side; ++y) {
        rows += "\xc1\7"; // 64 times 7
    }
    const auto fileOf = [&](unsigned compression, const std::string& strip, const std::string& text) {
        TinyTiff tiff;
        tiff.beginPage();
        tiff.addLong(g_tagWidth, side);
        tiff.addLong(g_tagHeight, side);
        tiff.addShort(g_tagBits, 8);
        tiff.addShort(g_tagCompression, compression);
        tiff.addShort(g_tagPhotometric, 1);
        if (!text.empty()) {
            tiff.addText(g_tagDescription, text);
        }
        tiff.addBlocks({strip});
        tiff.endPage();
        return tiff.getData();
    };
    putContent(m_folder / "a.tif", fileOf(32773, rows, description));
    putContent(m_folder / "b.tif", fileOf(1, std::string(side * side, '\5'), ""));
    const ImagePtr image = readImage(m_folder / "a.tif");
    EXPECT_EQ(7, valueAt(*image, {63, 63, 0, 0, 0}));
    EXPECT_EQ(5, valueAt(*image, {63, 63, 1, 0, 0}));
}

// The files are looked at first, and opened again for their pixels.
TEST_F(OmeFilesTest, AFileThatChangesMeanwhileIsRefused)
{
    put("a.tif",
        ome("SizeZ=\"3\"", tiffData(0, 0, "a.tif", "") + tiffData(1, 0, "b.tif", "") + tiffData(2, 0, "c.tif", "")), 1,
        1000);
    put("b.tif", "", 1, 2000);
    put("c.tif", "", 1, 3000);
    EXPECT_EQ((Values{1000, 2000, 3000}), firstsOf("a.tif"));
    ReadOptions options;
    options.progress = [&](unsigned long, unsigned long) {
        put("b.tif", "", 2, 2000);
        return true;
    };
    EXPECT_TRUE(
        contains(failureOf([&] { (void)readImage(m_folder / "a.tif", options); }), "it changed while it was read"));
}
