// Chunks of PNG files beside the pixels: what is believed, what is refused, and what is written.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPng.h"

#include <boost/make_shared.hpp>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

std::string fileWith(const std::string& chunks)
{
    return pngOf({.width = 2, .height = 2, .furtherChunks = chunks}, [](auto, auto, unsigned) { return 7u; });
}

std::string refusalOf(const std::string& chunks)
{
    return failureOf([&] { (void)readPng(bytesOf(fileWith(chunks)), {}); });
}

std::string folded(const std::string& stream)
{
    return pngChunk("zTXt", std::string("OME-XML\0\0", 9) + stream);
}

} // namespace

TEST(PngChunksTest, NoneIsLongerThanTheFile)
{
    EXPECT_EQ(7, valueAt(*readPng(bytesOf(fileWith(pngChunk("tIME", "abcdefg"))), {}), {1, 1, 0, 0, 0}));
    for (const std::string type : {"tIME", "tEXt", "abCd", "PLTE"}) {
        EXPECT_TRUE(contains(refusalOf(bigEndian(4, 0x7fffffff) + type + "abcd"), "a chunk is longer than the file"));
    }
}

TEST(PngChunksTest, DescriptionsThatDontUnfoldSayWhy)
{
    const std::string full = stored("<OME/>");
    EXPECT_TRUE(contains(refusalOf(folded(full)), "it tells of no image"));
    EXPECT_TRUE(contains(refusalOf(folded(full.substr(0, full.size() - 6))), "can't be unfolded"));
    EXPECT_TRUE(contains(refusalOf(folded(stored(std::string((1u << 20) + 1, ' ')))), "ends early or unfolds to more"));
    EXPECT_TRUE(contains(refusalOf(folded("no stream")), "its OME-XML text can't be unfolded"));
}

// Whole pixels per metre are 1 at least, and 2^31 - 1 at most.
TEST(PngChunksTest, PixelSizesThatNoChunkCanTellAreLeftOut)
{
    const TestFolder folder;
    const auto tells = [&](float sizeX, float sizeY) {
        const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 3, 3), 1);
        auto calibration = boost::make_shared<GeometricCalibration>();
        calibration->init2d("m", sizeX, sizeY, 0, 0);
        image->setGeometricCalibration(calibration);
        writeImage(folder / "a.png", image);
        return contentOf(folder / "a.png").find("pHYs") != std::string::npos;
    };
    EXPECT_TRUE(tells(1, 1));
    EXPECT_TRUE(tells(1, 1e-9f));
    EXPECT_FALSE(tells(1, 4));
    EXPECT_FALSE(tells(4, 1));
    EXPECT_FALSE(tells(1, 1e-10f));
}
