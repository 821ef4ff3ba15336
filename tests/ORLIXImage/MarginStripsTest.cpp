// Strips with margins: how much of the margins the image has.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ImageYStrip2dWithKernel.h"
#include "ORLIXIPL/ORLIXImage/ImageZStrip3dWithKernel.h"

#include <gtest/gtest.h>

namespace orlix::image {
namespace {

TEST(MarginStrips, AStripOfAPlanKnowsItsMargins)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Real32, 10, 20));
    const InputImageYStrip2dWithKernel strip(*image, 5, 7, {1, 2}, {3, 4});
    EXPECT_EQ(strip.getSizeX(), 10u);
    EXPECT_EQ(strip.getSizeY(), 20u);
    EXPECT_EQ(strip.getStripStartOffsetY(), 5u);
    EXPECT_EQ(strip.getStripSizeY(), 7u);
    EXPECT_EQ(strip.getStartingKernelSizeX(), 1u);
    EXPECT_EQ(strip.getEndingKernelSizeX(), 2u);
    EXPECT_EQ(strip.getStartingKernelSizeY(), 3u);
    EXPECT_EQ(strip.getEndingKernelSizeY(), 4u);
    EXPECT_EQ(strip.accessBuffer(), image->accessRow(5, 0, 0, 0));
    EXPECT_EQ(strip.accessImageLine(0), image->accessRow(0, 0, 0, 0));
    EXPECT_EQ(strip.accessImageLine(19), image->accessRow(19, 0, 0, 0));
}

TEST(MarginStrips, LinesOfAMarginAreThoseThatThePlanHas)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 10, 20));
    for (unsigned long start = 0; start <= 20; ++start) {
        for (unsigned long size = 0; start + size <= 20; ++size) {
            const InputImageYStrip2dWithKernel strip(*image, start, size, {0, 0}, {3, 4});
            unsigned long nbAbove = 0;
            unsigned long nbBelow = 0;
            for (long y = static_cast<long>(start) - 3; y < static_cast<long>(start + size) + 4; ++y) {
                nbAbove += y >= 0 && y < static_cast<long>(start);
                nbBelow += y >= static_cast<long>(start + size) && y < 20;
            }
            EXPECT_EQ(strip.getNbLinesAbove(), nbAbove) << start << " " << size;
            EXPECT_EQ(strip.getNbLinesBelow(), nbBelow) << start << " " << size;
        }
    }
}

TEST(MarginStrips, AStripOfAVolumeKnowsItsMargins)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt16, 10, 20, 9));
    const InputImageZStrip3dWithKernel strip(*image, 2, 6, {1, 2}, {3, 4});
    EXPECT_EQ(strip.getSizeY(), 20u);
    EXPECT_EQ(strip.getStripStartOffsetZ(), 2u);
    EXPECT_EQ(strip.getStripSizeZ(), 6u);
    EXPECT_EQ(strip.getStartingKernelSizeX(), 1u);
    EXPECT_EQ(strip.getEndingKernelSizeX(), 2u);
    EXPECT_EQ(strip.getStartingKernelSizeY(), 1u);
    EXPECT_EQ(strip.getEndingKernelSizeY(), 2u);
    EXPECT_EQ(strip.getStartingKernelSizeZ(), 3u);
    EXPECT_EQ(strip.getEndingKernelSizeZ(), 4u);
    EXPECT_EQ(strip.getNbPlansBefore(), 2u) << "of 3, the plans 0 and 1";
    EXPECT_EQ(strip.getNbPlansBehind(), 1u) << "of 4, plan 8 alone";
    EXPECT_EQ(strip.accessBuffer(1), image->accessRow(0, 3, 0, 0));
    EXPECT_EQ(strip.accessImageLine(7, 8), image->accessRow(7, 8, 0, 0));
    const InputImageZStrip3dWithKernel inner(*image, 4, 1, {1, 1}, {3, 4});
    EXPECT_EQ(inner.getNbPlansBefore(), 3u);
    EXPECT_EQ(inner.getNbPlansBehind(), 4u);
}

} // namespace
} // namespace orlix::image
