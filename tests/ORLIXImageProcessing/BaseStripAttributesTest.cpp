// Attributes that carry strips of volumes and strips with margins: what they say of them.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StorageRecorder.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;

TEST(StripAttributes, OfVolumesAndWithMarginsTellTheirType)
{
    const ImagePtr image = createImage(*image::geometry3d(eImageBufferType::Int16, 5, 4, 3));
    InOutVolumeStrip inOut;
    EXPECT_EQ(inOut.getImageBufferType(), eImageBufferType::eNoBuffer);
    EXPECT_TRUE(inOut.isOutput());
    inOut.init(boost::make_shared<image::InOutImageZStrip3d>(*image, 1, 2));
    EXPECT_EQ(inOut.getImageBufferType(), eImageBufferType::Int16);
    EXPECT_EQ(inOut.getBaseImageZStrip3d().getStripSizeZ(), 2u);
    InMarginVolumeStrip margins;
    EXPECT_FALSE(margins.isOutput());
    margins.init(boost::make_shared<image::InputImageZStrip3dWithKernel>(*image, 1, 2, image::Margin{1, 1},
                                                                         image::Margin{0, 1}));
    EXPECT_EQ(margins.getBaseImageZStrip3dWithKernel().getNbPlansBehind(), 0u);
    margins.clear();
    EXPECT_FALSE(margins.isSet());
    EXPECT_EQ(margins.getImageBufferType(), eImageBufferType::eNoBuffer);
}

} // namespace
} // namespace orlix::imaproc::test
