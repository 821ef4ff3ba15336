// Lines in volumes whose voxels lie in any order and at any distance.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"
#include "support/Executors.h"
#include "support/StridedImages.h"

namespace orlix::imaproc::util::test {
namespace {

using testing::StridedForm;
using testing::StridedImage;

constexpr LineAngles g_angles{0.4F, 0.3F, 0.2F};

TEST(BuildLines3dImgStridesTest, volumesAndPlans)
{
    const testing::ScopedExecutor scope(core::makePlainThreadExecutor(4));
    for (const auto& [x, y, z] : {std::tuple{1UL, 1UL, 2UL}, {63UL, 7UL, 5UL}, {64UL, 5UL, 2UL}, {200UL, 65UL, 11UL}}) {
        for (const StridedForm& form : testing::g_stridedForms) {
            SCOPED_TRACE(form.name + ", " + std::to_string(x));
            StridedImage image(*image::geometry5d(image::eImageBufferType::eBufferBinary, x, y, z, 2, 2), form);
            image.fillRandom(1);
            buildLines3dImg(g_angles.theta, g_angles.phi, g_angles.alpha, 6.5F, image.get());
            EXPECT_TRUE(hasLines(*image.makeDense(), g_angles, 6.5F));
            EXPECT_TRUE(image.isOutsideIntact());
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
