// Hand-made files of small pages that tell by their values which page they are.
#pragma once

#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TinyTiff.h"

namespace orlix::image::io::test {

struct FileWish
{
    std::string description = {};
    unsigned pages = 1;
    unsigned samples = 1;
    unsigned resolutionUnit = 0; ///< 0 writes no resolution
    std::uint32_t perUnit[2] = {1, 1};
    std::uint32_t ratio = 2; ///< of the resolution along y to that along x
    unsigned rawPlans = 0;   ///< behind the pages
    bool bBigEndian = false;
    unsigned reducedPage = ~0u; ///< marked as a reduced copy, of half the size
};

/// Pages of 3x2 pixels of UInt16; sample s of pixel (x, y) of page p is p * 100 + s * 10 + y * 3 + x.
inline std::string fileOf(const FileWish& wish)
{
    TinyTiff tiff(wish.bBigEndian);
    for (unsigned page = 0; page < wish.pages; ++page) {
        const bool bReduced = page == wish.reducedPage;
        tiff.beginPage();
        addPageTags(tiff, bReduced ? 1 : 3, bReduced ? 1 : 2, 16, wish.samples, wish.samples == 3 ? 2 : 1);
        tiff.addLong(g_tagSubfileType, bReduced ? 1 : 0);
        if (page == 0 && !wish.description.empty()) {
            tiff.addText(g_tagDescription, wish.description);
        }
        if (wish.resolutionUnit != 0) {
            tiff.addRational(g_tagXResolution, wish.perUnit[0], wish.perUnit[1]);
            tiff.addRational(g_tagYResolution, wish.ratio * wish.perUnit[0], wish.perUnit[1]);
            tiff.addShort(g_tagResolutionUnit, wish.resolutionUnit);
        }
        std::string strip;
        for (unsigned i = 0; i < (bReduced ? 1u : 6u); ++i) {
            for (unsigned s = 0; s < wish.samples; ++s) {
                strip += tiff.number(2, page * 100 + s * 10 + i);
            }
        }
        tiff.addBlocks({strip});
        if (wish.rawPlans > 0) { // the directory comes before or behind; here behind the raw plans
            for (unsigned plan = 1; plan <= wish.rawPlans; ++plan) {
                for (unsigned i = 0; i < 6; ++i) {
                    for (unsigned s = 0; s < wish.samples; ++s) {
                        tiff.addData(tiff.number(2, plan * 100 + s * 10 + i));
                    }
                }
            }
        }
        tiff.endPage();
    }
    return tiff.getData();
}

inline ImagePtr imageOf(const FileWish& wish)
{
    return readTiff(bytesOf(fileOf(wish)));
}

/// The page whose pixels a plan has, by its first pixel.
inline unsigned pageAt(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    const double first = valueAt(image, {0, 0, z, c, t});
    EXPECT_EQ(first + 5, valueAt(image, {2, 1, z, c, t}));
    return static_cast<unsigned>(first) / 100;
}

/// OME-XML of one image with such pages.
inline std::string ome(const std::string& pixels, const std::string& inside = "<TiffData/>",
                       const std::string& root = "")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><OME "
           "xmlns=\"http://www.openmicroscopy.org/Schemas/OME/2016-06\"" +
           root + "><Image ID=\"Image:0\"><Pixels ID=\"Pixels:0\" Type=\"uint16\" SizeX=\"3\" SizeY=\"2\" " + pixels +
           ">" + inside + "</Pixels></Image></OME>";
}

} // namespace orlix::image::io::test
