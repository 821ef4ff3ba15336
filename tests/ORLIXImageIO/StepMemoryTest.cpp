// Images whose time steps lie in different memory give the same files as others.
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "support/SameImages.h"
#include "support/StepImages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;
using orlix::testing::makeGrown;
using orlix::testing::makeRandom;
using orlix::testing::WatchedImage;

namespace {

/// Every way in which pixels go to a TIFF file: from the image itself, packed, in tiles, coded, swapped, as ImageJ has
/// them.
std::vector<WriteOptions> allOptions()
{
    std::vector<WriteOptions> all(7);
    all[1].bTiled = true;
    all[1].tileSize = 16;
    all[2].compression = eTiffCompression::eDeflate;
    all[3].byteOrder = eByteOrder::eBigEndian;
    all[4].description = eTiffDescription::eImageJ;
    all[5].description = eTiffDescription::eImageJ;
    all[5].compression = eTiffCompression::ePackBits;
    all[6].channelLayout = eChannelLayout::eRgbSamples;
    return all;
}

/// Steps without gaps stand before others and behind them, so that a writer can't judge all by one.
TEST(StepMemory, SameFilesWhereverTheStepsLie)
{
    const TestFolder folder;
    for (const eImageBufferType type :
         {eImageBufferType::UInt8, eImageBufferType::UInt16, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const unsigned long rowGap : {0UL, 3UL}) {
            const WatchedImage wrapped(*geometry5d(type, 41, 23, 2, 3, 2), {.rowGap = rowGap, .planGap = 7});
            orlix::testing::fillRandom(*wrapped.get(), 2);
            const ImagePtr dense = makeRandom(*geometry5d(type, 41, 23, 2, 3, 1), 1);
            for (const ImagePtr& image :
                 {orlix::testing::joined(dense, wrapped.get()), orlix::testing::joined(wrapped.get(), dense),
                  makeGrown(*geometry5d(type, 41, 23, 2, 3, 3))}) {
                const ImagePtr plain = orlix::testing::plainCopy(*image);
                for (const WriteOptions& options : allOptions()) {
                    writeImage(folder / "plain.tif", plain, options);
                    writeImage(folder / "steps.tif", image, options);
                    EXPECT_EQ(contentOf(folder / "steps.tif"), contentOf(folder / "plain.tif"));
                }
                EXPECT_TRUE(orlix::testing::sameImages(*readImage(folder / "steps.tif"), *image));
            }
            EXPECT_TRUE(wrapped.isOutsideIntact());
        }
    }
}

TEST(StepMemory, StepsOfSeveralTypesAreRefused)
{
    const TestFolder folder;
    const ImagePtr image = orlix::testing::joined(makeRandom(*geometry2d(eImageBufferType::UInt8, 5, 4)),
                                                  makeRandom(*geometry2d(eImageBufferType::UInt16, 5, 4)));
    EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "a.tif", image); }), "5x4x1x1x2 UInt8/UInt16"));
    EXPECT_TRUE(folder.getNames().empty());
}

} // namespace
