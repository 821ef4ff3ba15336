// Small files that claim much cost no more memory than other small files.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPng.h"
#include "ORLIXImageIO/TinyTiff.h"
#include "support/Sanitizers.h"

#include <zlib.h>

#include <sys/wait.h>
#include <unistd.h>

#include <vector>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

constexpr unsigned long g_mebi = 1ul << 20;

unsigned long kilobytesOf(const std::string& key)
{
    std::ifstream stream("/proc/self/status");
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(key + ":")) {
            return std::stoul(line.substr(key.size() + 1));
        }
    }
    return 0;
}

/// By how many bytes the address space of a process grew at most in which `work` ran; ~0 where it crashed.
template <class TWork>
unsigned long growthOf(TWork&& work)
{
    int pipe[2];
    EXPECT_EQ(0, ::pipe(pipe));
    const pid_t child = ::fork();
    if (child == 0) {
        const unsigned long before = kilobytesOf("VmSize");
        try {
            work();
        } catch (const ORLIXImageIOException&) {
        }
        const unsigned long growth = 1024 * (kilobytesOf("VmPeak") - before);
        ::_exit(::write(pipe[1], &growth, sizeof growth) == sizeof growth ? 0 : 1);
    }
    ::close(pipe[1]);
    unsigned long growth = ~0ul;
    if (::read(pipe[0], &growth, sizeof growth) != sizeof growth) {
        growth = ~0ul;
    }
    ::close(pipe[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return growth;
}

struct Bomb
{
    std::string name;
    std::string content;
};

void PrintTo(const Bomb& bomb, std::ostream* out)
{
    *out << bomb.name << ", " << bomb.content.size() << " bytes";
}

/// A chunk that says to be longer than it is.
std::string lyingChunk(const std::string& type, std::uint64_t claimed, const std::string& content)
{
    return bigEndian(4, claimed) + type + content + bigEndian(4, crcOf(type + content));
}

std::string folded(std::size_t zeros)
{
    const std::string data(zeros, '\0');
    std::string stream(compressBound(data.size()), '\0');
    uLongf size = stream.size();
    compress(reinterpret_cast<Bytef*>(stream.data()), &size, reinterpret_cast<const Bytef*>(data.data()), data.size());
    stream.resize(size);
    return stream;
}

std::string pngWith(const std::string& chunks)
{
    return pngOf({.width = 20, .height = 20, .furtherChunks = chunks}, [](auto x, auto, auto) { return x; });
}

std::vector<Bomb> pngBombs()
{
    using std::literals::operator""s;
    const std::string ome = "OME-XML\0"s, comment = "Comment\0"s, zeros = folded(64 * g_mebi);
    std::vector<Bomb> bombs;
    for (const char* const type :
         {"iTXt", "zTXt", "tEXt", "iCCP", "sPLT", "eXIf", "hIST", "tIME", "pHYs", "tRNS", "unKn"}) {
        for (const std::string& keyword : {ome, comment}) {
            bombs.push_back({type + " of 2 GB, "s + keyword.c_str(),
                             pngWith(lyingChunk(type, 2000000000, keyword + std::string(600, 'x')))});
        }
    }
    std::string many;
    for (int i = 0; i < 40; ++i) {
        many += pngChunk("zTXt", comment + '\0' + zeros);
    }
    bombs.push_back({"many zTXt that unfold", pngWith(many)});
    bombs.push_back({"zTXt that unfolds", pngWith(pngChunk("zTXt", ome + '\0' + zeros))});
    bombs.push_back({"iTXt that unfolds", pngWith(pngChunk("iTXt", ome + "\1\0\0\0"s + zeros))});
    bombs.push_back({"iCCP that unfolds", pngWith(pngChunk("iCCP", "profile\0\0"s + zeros))});
    return bombs;
}

/// A page of one row per strip, or of one pixel per tile, of which one is listed.
std::string tiffClaiming(std::uint64_t height, bool bTiles, bool bBig = false)
{
    TinyTiff tiff(false, bBig);
    tiff.beginPage();
    addPageTags(tiff, bTiles ? height : 16, height, 8, 1, 1);
    if (bTiles) {
        tiff.addLong(g_tagTileWidth, 16);
        tiff.addLong(g_tagTileHeight, 16);
    } else {
        tiff.addLong(g_tagRowsPerStrip, 1);
    }
    tiff.addBlocks({std::string(600, 'a')}, bTiles);
    tiff.endPage();
    return tiff.getData();
}

/// Changes the number of values that the entry of a tag claims to have.
std::string claimingCount(const std::string& file, std::uint16_t tag, std::uint16_t type, std::uint32_t count)
{
    const TinyTiff tiff;
    const std::string start = tiff.number(2, tag) + tiff.number(2, type);
    std::string changed = file;
    changed.replace(changed.find(start) + start.size(), 4, tiff.number(4, count));
    return changed;
}

std::vector<Bomb> tiffBombs()
{
    std::vector<Bomb> bombs;
    bombs.push_back({"12 million strips", tiffClaiming(12000000, false)});
    bombs.push_back({"2 billion strips", tiffClaiming(2000000000, false)});
    bombs.push_back({"12 million strips, BigTIFF", tiffClaiming(12000000, false, true)});
    bombs.push_back({"10 million tiles", tiffClaiming(50000, true)});
    TinyTiff second;
    for (const std::uint64_t height : {16ul, 12000000ul}) {
        second.beginPage();
        addPageTags(second, 16, height, 8, 1, 1);
        second.addLong(g_tagRowsPerStrip, 1);
        second.addBlocks(std::vector<std::string>(16, std::string(16, 'a')));
        second.endPage();
    }
    bombs.push_back({"12 million strips of a second page", second.getData()});

    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 16, 16, 8, 1, 1);
    tiff.addLong(g_tagRowsPerStrip, 16);
    tiff.addText(g_tagDescription, std::string(100, 'd'));
    tiff.addBlocks({std::string(256, 'a')});
    const std::uint64_t first = tiff.endPage();
    const std::string page = tiff.getData();
    for (const std::uint32_t count : {100000000u, 0x7fffffffu, 0xffffffffu}) {
        bombs.push_back({"long description", claimingCount(page, g_tagDescription, 2, count)});
        bombs.push_back({"long list of strips", claimingCount(page, g_tagStripOffsets, 4, count)});
        bombs.push_back({"long list of sizes", claimingCount(page, g_tagStripBytes, 4, count)});
    }
    tiff.link(first);
    bombs.push_back({"pages in a circle", tiff.getData()});
    return bombs;
}

class BombTest : public ::testing::TestWithParam<Bomb>
{
protected:
    void SetUp() override
    {
#if defined(ORLIX_ADDRESS_SANITIZER) || defined(ORLIX_THREAD_SANITIZER)
        GTEST_SKIP() << "a sanitizer takes address space of its own";
#endif
    }

    const bool m_bPng = GetParam().content.starts_with("\x89PNG");
};

} // namespace

TEST_P(BombTest, CostsNoMoreThanAnyFile)
{
    const TestFolder folder;
    const auto file = folder / "bomb";
    const auto cost = [&](const std::string& content) {
        putContent(file, content);
        return growthOf([&] { (void)readImageInfo(file); });
    };
    const std::string plain = m_bPng ? pngWith("") : tiffClaiming(16, true);
    EXPECT_LE(cost(GetParam().content), cost(plain) + 16 * g_mebi);

    const auto read = [&](const std::string& content) {
        return growthOf([&] { m_bPng ? readPng(bytesOf(content)) : readTiff(bytesOf(content)); });
    };
    EXPECT_LE(read(GetParam().content), read(plain) + 16 * g_mebi);
}

INSTANTIATE_TEST_SUITE_P(Png, BombTest, ::testing::ValuesIn(pngBombs()));
INSTANTIATE_TEST_SUITE_P(Tiff, BombTest, ::testing::ValuesIn(tiffBombs()));

// What the other tests lean on.
TEST(BombMeasureTest, SeesMemoryThatWasGivenBack)
{
    const unsigned long growth = growthOf([] {
        const std::vector<char> taken(100 * g_mebi);
        asm volatile("" : : "r"(taken.data()) : "memory"); // compilers may leave out what nobody looks at
    });
    EXPECT_GE(growth, 100 * g_mebi);
    EXPECT_LE(growth, 120 * g_mebi);
}

TEST(PngTextTest, DescriptionsAreReadFromEveryKindOfText)
{
    using std::literals::operator""s;
    const std::string xml = "<OME xmlns=\"http://www.openmicroscopy.org/Schemas/OME/2016-06\"><Image><Pixels "
                            "DimensionOrder=\"XYZCT\" SizeX=\"20\" SizeY=\"20\" SizeZ=\"1\" SizeC=\"1\" SizeT=\"1\" "
                            "Type=\"uint8\" PhysicalSizeX=\"0.5\" PhysicalSizeY=\"0.25\"/></Image></OME>";
    std::string zlib(compressBound(xml.size()), '\0');
    uLongf size = zlib.size();
    compress(reinterpret_cast<Bytef*>(zlib.data()), &size, reinterpret_cast<const Bytef*>(xml.data()), xml.size());
    zlib.resize(size);
    const std::string keyword = "OME-XML\0"s;
    const auto pixelSize = [&](const std::string& chunks) {
        const ImagePtr image = readPng(bytesOf(pngWith(chunks)));
        return image->getGeometricCalibration() ? image->getGeometricCalibration()->getPixelSizeX() : 0;
    };
    EXPECT_EQ(0, pixelSize(""));
    EXPECT_EQ(0.5f, pixelSize(pngChunk("tEXt", keyword + xml)));
    EXPECT_EQ(0.5f, pixelSize(pngChunk("zTXt", keyword + '\0' + zlib)));
    EXPECT_EQ(0.5f, pixelSize(pngChunk("iTXt", keyword + "\0\0en\0title\0"s + xml)));
    EXPECT_EQ(0.5f, pixelSize(pngChunk("iTXt", keyword + "\1\0\0\0"s + zlib)));
    EXPECT_EQ(0, pixelSize(pngChunk("tEXt", "Comment\0"s + xml)));

    std::string wrong = pngChunk("tEXt", keyword + xml);
    wrong.back() = static_cast<char>(wrong.back() ^ 1);
    EXPECT_TRUE(contains(failureOf([&] { (void)pixelSize(wrong); }), "wrong check sum"));
    EXPECT_TRUE(contains(failureOf([&] { (void)pixelSize(pngChunk("iTXt", keyword + "\0\0en"s)); }), "ends early"));
    EXPECT_TRUE(contains(failureOf([&] { (void)pixelSize(pngChunk("zTXt", keyword + '\0' + "no zlib")); }),
                         "can't be unfolded"));
}
