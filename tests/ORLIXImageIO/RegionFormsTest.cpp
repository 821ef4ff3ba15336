// Regions of whatever a file can hold. Tests of forms that are made by hand cut regions too.
#include "ORLIXImageIO/CutImages.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

class RegionFormsTest : public ::testing::Test
{
protected:
    void expectCuts(const BaseImageGeometry& geometry, const WriteOptions& options, const char* name = "a.tif")
    {
        expectCuts(filledImage(geometry, ++m_seed), options, name);
    }

    void expectCuts(const ImagePtr& image, const WriteOptions& options, const char* name = "a.tif")
    {
        writeImage(m_folder / name, image, options);
        EXPECT_TRUE(regionsOfFileAreCuts(m_folder / name)) << image->getGeometry().toString();
    }

    const TestFolder m_folder;
    std::uint64_t m_seed = 0;
};

} // namespace

TEST_F(RegionFormsTest, EveryTypeAndAxisInTilesAndStrips)
{
    for (const eImageBufferType type : g_allBufferTypes) {
        for (const bool bTiled : {false, true}) {
            for (const auto order : {eByteOrder::eLittleEndian, eByteOrder::eBigEndian}) {
                WriteOptions options;
                options.bTiled = bTiled;
                options.tileSize = 16;
                options.byteOrder = order;
                expectCuts(*geometry5d(type, 41, 37, 3, 2, 2), options);
                options.compression = eTiffCompression::eDeflate;
                expectCuts(*geometry5d(type, 41, 37, 3, 2, 2), options);
            }
        }
    }
}

TEST_F(RegionFormsTest, SeveralStripsOfEveryCompression)
{
    using enum eTiffCompression::domain;
    for (const unsigned long channels : {1, 3}) {
        const ImagePtr image = filledImage(*geometry5d(eImageBufferType::UInt8, 1500, 900, 1, channels, 1), channels);
        for (const auto compression : {eNone, ePackBits, eLzw, eDeflate, eZstd, eLzma}) {
            if (isBuiltIn(compression)) {
                WriteOptions options;
                options.compression = compression;
                expectCuts(image, options);
            }
        }
    }
}

TEST_F(RegionFormsTest, ChannelsAsSamplesAndAsPages)
{
    for (const auto layout : {eChannelLayout::ePages, eChannelLayout::eRgbSamples}) {
        for (const bool bTiled : {false, true}) {
            WriteOptions options;
            options.channelLayout = layout;
            options.bTiled = bTiled;
            options.tileSize = 16;
            options.bigTiff = eBigTiff::eAlways;
            expectCuts(*geometry5d(eImageBufferType::UInt16, 29, 35, 3, 4, 2), options);
            expectCuts(*geometry5d(eImageBufferType::Real32, 29, 35, 3, 3, 2), options);
        }
    }
}

TEST_F(RegionFormsTest, StacksOfImageJ)
{
    for (const auto compression : {eTiffCompression::eNone, eTiffCompression::eLzw}) {
        for (const auto type :
             {eImageBufferType::UInt8, eImageBufferType::UInt16, eImageBufferType::Int16, eImageBufferType::Real32}) {
            for (const unsigned long channels : {1, 2, 3}) {
                WriteOptions options;
                options.description = eTiffDescription::eImageJ;
                options.compression = compression;
                expectCuts(*geometry5d(type, 23, 19, 5, channels, 3), options);
            }
        }
    }
}

// A row of which little is wanted is read by itself.
TEST_F(RegionFormsTest, RowsThatAreLong)
{
    for (const auto order : {eByteOrder::eLittleEndian, eByteOrder::eBigEndian}) {
        for (const auto layout : {eChannelLayout::ePages, eChannelLayout::eRgbSamples}) {
            WriteOptions options;
            options.byteOrder = order;
            options.channelLayout = layout;
            expectCuts(*geometry5d(eImageBufferType::UInt16, 70000, 9, 1, 3, 1), options);
        }
    }
}

TEST_F(RegionFormsTest, Png)
{
    for (const auto type : {eImageBufferType::UInt8, eImageBufferType::UInt16}) {
        for (const unsigned long channels : {1, 2, 3, 4}) {
            expectCuts(*geometry5d(type, 71, 150, 1, channels, 1), {}, "a.png");
        }
    }
    expectCuts(*geometry2d(eImageBufferType::eBufferBinary, 71, 150), {}, "a.png");
}

TEST_F(RegionFormsTest, PlansThatLieInSeveralFiles)
{
    const auto dataOf = [](unsigned z, unsigned page, const std::string& name) {
        return "<TiffData FirstZ=\"" + std::to_string(z) + "\" IFD=\"" + std::to_string(page) + "\"><UUID FileName=\"" +
               name + "\">urn:uuid:" + name + "</UUID></TiffData>";
    };
    const std::string description =
        ome("SizeZ=\"6\"", dataOf(0, 1, "b.tif") + dataOf(1, 0, "a.tif") + dataOf(2, 0, "b.tif") +
                               dataOf(3, 2, "a.tif") + dataOf(4, 1, "a.tif") + dataOf(5, 2, "b.tif"));
    for (const char* const name : {"a.tif", "b.tif"}) {
        putContent(m_folder / name, fileOf({.description = description, .pages = 3}));
    }
    EXPECT_TRUE(regionsOfFileAreCuts(m_folder / "a.tif"));
    EXPECT_TRUE(regionsOfFileAreCuts(m_folder / "b.tif"));
}

TEST_F(RegionFormsTest, PagesAmongReducedCopies)
{
    for (const unsigned reduced : {0u, 1u, 3u}) {
        EXPECT_TRUE(regionsAreCuts(fileOf({.pages = 5, .reducedPage = reduced}))) << reduced;
    }
}
