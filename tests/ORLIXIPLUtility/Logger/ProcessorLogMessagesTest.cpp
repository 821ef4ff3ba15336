// The catalogues of ORLIXIPLUtility, word for word.
#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/MessageMapRegistrator.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

constexpr const char* g_processorTexts[] = {
    "Concatenation of 2 image sequences algorithm level 1",
    "Level 2 algorithm: binary basic threshold on one image on Gpu",
    "Level 1 algorithm: binary basic threshold on one image",
    "Level 2 algorithm: binary basic threshold on one image",
    "Level 3 algorithm: binary basic threshold on one image",
    "Level 2 algorithm: Generates a binary image with oriented lines  on Gpu",
    "Level 1 algorithm: Generates a binary image with oriented lines",
    "Level 2 algorithm: Generates a binary image with oriented lines",
    "Level 3 algorithm: Generates a binary image with oriented lines",
    "Level 2 algorithm: Generates a 3D binary image with oriented lines  on Gpu",
    "Level 1 algorithm: Generates a 3D binary image with oriented lines",
    "Level 2 algorithm: Generates a 3D binary image with oriented lines",
    "Level 3 algorithm: Generates a 3D binary image with oriented lines",
    "Tile collection size %d mismatch with results collection size %d",
    "Image comparison algorithm level 1",
    "Image comparison algorithm level 2",
    "Image comparison algorithm level 3",
    "Image data type conversion algorithm level 2 on Gpu",
    "Image data type conversion algorithm level 1",
    "Image data type conversion algorithm level 2",
    "Image data type conversion algorithm level 3",
    "Image copy algorithm level 2 on Gpu",
    "Image copy algorithm level 1",
    "Image copy algorithm level 2",
    "Image copy algorithm level 3",
    "Image erasing algorithm level 2 on Gpu",
    "Image erasing algorithm level 1",
    "Image erasing algorithm level 2",
    "Image erasing algorithm level 3",
    "Level 1 algorithm: extract values at specific coordinates from a 2d image",
    "Level 2 algorithm: extract values at specific coordinates from a 2d image",
    "Level 3 algorithm: extract values at specific coordinates from a 2d image",
    "Level 3 algorithm: extract values at specific coordinates from a 2d image",
    "Level 1 algorithm: extract values at specific coordinates from a 3d image",
    "Level 2 algorithm: extract values at specific coordinates from a 3d image",
    "Level 3 algorithm: extract values at specific coordinates from a 3d image",
    "Level 3 algorithm: extract values at specific coordinates from a 3d image",
    "Level 1 algorithm: initialization of an image with random values generated using a normal law",
    "Level 2 algorithm: initialization of an image with random values generated using a normal law",
    "Level 3 algorithm: initialization of an image with random values generated using a normal law",
    "Image 2d ROI extraction algorithm level 1",
    "Image 2d ROI extraction algorithm level 2",
    "Image 2d ROI extraction algorithm level 3",
    "Image 3d ROI extraction algorithm level 1",
    "Image 3d ROI extraction algorithm level 2",
    "Image 3d ROI extraction algorithm level 3",
    "Level 2 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image  on Gpu",
    "Level 1 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image",
    "Level 2 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image",
    "Level 3 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image",
    "Input point 2d coordinates {x=%f, y=%f} are not valid given strip coordinates {xSize=%d, yStart=%d, ySize=%d}",
    "Input point 3d coordinates {x=%f, y=%f, z=%f} are not valid given strip coordinates {xSize=%d, ySize=%d, "
    "zStart=%d, zSize=%d}",
    "Elements range [%d, %d[ used for data is invalid regards to elements collection size %d",
    "Image 2d ROI insertion algorithm level 1",
    "Image 2d ROI insertion algorithm level 2",
    "Image 2d ROI insertion algorithm level 3",
    "Image 3d ROI insertion algorithm level 1",
    "Image 3d ROI insertion algorithm level 2",
    "Image 3d ROI insertion algorithm level 3",
    "Level 2 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z  on Gpu",
    "Level 1 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z",
    "Level 2 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z",
    "Level 3 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z",
    "Level 1 algorithm: initialization of an image with random values generated using a uniform law on interval "
    "[RandomMin; RandomMax]",
    "Level 2 algorithm: initialization of an image with random values generated using a uniform law on interval "
    "[RandomMin; RandomMax]",
    "Level 3 algorithm: initialization of an image with random values generated using a uniform law on interval "
    "[RandomMin; RandomMax]",
    "Interpolation policy %s is not supported"};

std::string textOf(const char* catalogue, int id)
{
    const std::string key = "N5orlix7imaproc4util" + std::string(catalogue) + "6domainE";
    return getORLIXIPLUtilityLogMessageManager().getMessage(key, id);
}

TEST(ProcessorLogMessagesTest, everyText)
{
    MessageMapRegistrator<eProcessorMessage, void>::process();
    ASSERT_EQ(std::size(g_processorTexts), MessageCatalogue<eProcessorMessage>::texts().size())
        << "a new text is told here, too";
    for (int id = 0; id < static_cast<int>(std::size(g_processorTexts)); ++id) {
        EXPECT_EQ(textOf("17eProcessorMessage", id), g_processorTexts[id]) << id;
    }
}

TEST(ProcessorLogMessagesTest, otherCatalogues)
{
    MessageMapRegistrator<eORLIXIPLUtilityMessage, void>::process();
    MessageMapRegistrator<eOutputInitializerMessage, void>::process();
    MessageMapRegistrator<eRuleMessage, void>::process();
    EXPECT_EQ(textOf("23eORLIXIPLUtilityMessage", 0), "The output image has not been initialized");
    EXPECT_EQ(textOf("23eORLIXIPLUtilityMessage", 1),
              "A part of %s from (%d, %d, %d) on reaches beyond a whole of %dx%dx%d: make it smaller, let it begin "
              "earlier, or name a larger whole");
    EXPECT_EQ(textOf("23eORLIXIPLUtilityMessage", 2),
              "The part has %d pixels on axis x, the whole %d: a part has whole lines");
    EXPECT_EQ(textOf("23eORLIXIPLUtilityMessage", 3),
              "The part has %s size %d from %d on, the whole has %d: give a part that lies within");
    EXPECT_EQ(textOf("25eOutputInitializerMessage", 0), "Input attribute should not be null");
    EXPECT_EQ(textOf("12eRuleMessage", 0), "Attribute weak pointer has expired, can't get it");
    EXPECT_EQ(textOf("12eRuleMessage", 1), "Input attribute should not be null");
}

TEST(ORLIXIPLUtilityLogTest, names)
{
    EXPECT_EQ(getORLIXIPLUtilityLoggerName(), "ORLIX.ORLIXIPLUtility");
    EXPECT_EQ(getORLIXIPLUtilityLogMessageManager().getName(), "ORLIXIPLUtility");
}

} // namespace
} // namespace orlix::imaproc::util
