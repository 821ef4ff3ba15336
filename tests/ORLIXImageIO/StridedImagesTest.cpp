// Files of images whose pixels lie in any order and at any distance: what is read back, and that such a file is the
// same as that of the same pixels side by side.
#include "support/StridedImages.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;
using orlix::testing::StridedForm;
using orlix::testing::StridedImage;

namespace {

std::string bytesOfFile(const boost::filesystem::path& file)
{
    std::ifstream stream(file.string(), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void expectWritten(const BaseImageGeometry& geometry, const StridedForm& form, const std::string& ending,
                   WriteOptions options)
{
    SCOPED_TRACE(geometry.toString() + ", " + form.name + ending);
    options.bSync = false;
    const TestFolder folder;
    StridedImage image(geometry, form);
    image.take(*filledImage(geometry, 7));
    const ImagePtr dense = image.makeDense();
    writeImage(folder / ("strided" + ending), image.getConst(), options);
    ASSERT_TRUE(areSame(*dense, *readImage(folder / ("strided" + ending))));
    ASSERT_TRUE(orlix::testing::sameImages(*dense, *image.makeDense())) << "the image is only read";
    ASSERT_TRUE(image.isOutsideIntact());
    writeImage(folder / ("dense" + ending), dense, options);
    ASSERT_EQ(bytesOfFile(folder / ("strided" + ending)), bytesOfFile(folder / ("dense" + ending)));
}

/// Every way through the writers: straight, packed, tiled, compressed, in foreign order, for ImageJ.
std::vector<WriteOptions> everyWay(const BaseImageGeometry& geometry)
{
    std::vector<WriteOptions> ways(6);
    ways[1].bTiled = true;
    ways[1].tileSize = 32;
    ways[2].compression = eTiffCompression::eDeflate;
    ways[2].bPredictor = true;
    ways[3].byteOrder = eByteOrder::eBigEndian;
    ways[4].description = eTiffDescription::eImageJ;
    ways[5].description = eTiffDescription::eImageJ;
    ways[5].compression = eTiffCompression::eLzw;
    if (geometry.getSizeC() == 3 && geometry.getBufferType() != eImageBufferType::eBufferBinary) {
        ways.emplace_back().channelLayout = eChannelLayout::eRgbSamples;
        ways.emplace_back() = ways[1];
        ways.back().channelLayout = eChannelLayout::eRgbSamples;
    }
    // What ImageJ's description can't keep isn't for it.
    const eImageBufferType& type = geometry.getBufferType();
    if (type != eImageBufferType::UInt8 && type != eImageBufferType::UInt16 && type != eImageBufferType::Real32 &&
        type != eImageBufferType::Int16) {
        ways.erase(ways.begin() + 4, ways.begin() + 6);
    }
    return ways;
}

} // namespace

TEST(StridedImagesTest, tiffFilesOfEveryFormAndType)
{
    unsigned long turn = 0;
    for (const StridedForm& form : orlix::testing::allStridedForms()) {
        for (const eImageBufferType type : g_allBufferTypes) {
            const BaseImageGeometry geometry = *geometry5d(type, 65, 37, 2, 3, 2);
            const std::vector<WriteOptions> ways = everyWay(geometry);
            expectWritten(geometry, form, ".tif", ways[turn++ % ways.size()]);
        }
    }
}

TEST(StridedImagesTest, tiffFilesOfEveryFormInEveryWay)
{
    for (const StridedForm& form : orlix::testing::allStridedForms()) {
        for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16}) {
            const BaseImageGeometry geometry = *geometry5d(type, 33, 41, 2, 3, 1);
            for (const WriteOptions& options : everyWay(geometry)) {
                expectWritten(geometry, form, ".tif", options);
            }
        }
    }
}

TEST(StridedImagesTest, oneRowOrColumn)
{
    for (const StridedForm& form : orlix::testing::allStridedForms()) {
        for (const BaseImageGeometry& geometry :
             {*geometry2d(eImageBufferType::UInt16, 1, 70), *geometry2d(eImageBufferType::UInt16, 70, 1)}) {
            for (const WriteOptions& options : everyWay(geometry)) {
                expectWritten(geometry, form, ".tif", options);
            }
        }
    }
}

TEST(StridedImagesTest, pngFilesOfEveryForm)
{
    for (const StridedForm& form : orlix::testing::allStridedForms()) {
        for (const unsigned long channels : {1UL, 2UL, 3UL, 4UL}) {
            expectWritten(*geometry5d(eImageBufferType::UInt8, 65, 37, 1, channels, 1), form, ".png", {});
            expectWritten(*geometry5d(eImageBufferType::UInt16, 64, 5, 1, channels, 1), form, ".png", {});
        }
        expectWritten(*geometry2d(eImageBufferType::eBufferBinary, 65, 9), form, ".png", {});
    }
}
