// Ten million voxels beside the oracle, under the set that is forced.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"

#include <random>

namespace orlix::imaproc::util::test {
namespace {

TEST(BuildLines3dImgLongTest, tenMillionVoxels)
{
    std::mt19937 random(21);
    std::uniform_real_distribution<float> angle(-7.0F, 7.0F);
    std::uniform_real_distribution<float> exponent(-1.0F, 8.0F);
    std::uniform_int_distribution<unsigned long> size(1, 200);
    unsigned long nbVoxels = 0;
    while (nbVoxels < 10'000'000) {
        const unsigned long sizeX = size(random);
        const unsigned long sizeY = size(random);
        const unsigned long sizeZ = size(random);
        const LineAngles angles{angle(random), angle(random), angle(random)};
        const float offset = std::exp2(exponent(random));
        ASSERT_TRUE(hasLines(*buildLines3dImg(sizeX, sizeY, sizeZ, angles.theta, angles.phi, angles.alpha, offset),
                             angles, offset));
        nbVoxels += sizeX * sizeY * sizeZ;
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
