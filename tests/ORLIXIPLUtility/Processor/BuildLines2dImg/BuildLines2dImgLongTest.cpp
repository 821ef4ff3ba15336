// Ten million pixels beside the oracle, under the set that is forced.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"

#include <random>

namespace orlix::imaproc::util::test {
namespace {

TEST(BuildLines2dImgLongTest, tenMillionPixels)
{
    std::mt19937 random(20);
    std::uniform_real_distribution<float> angle(-7.0F, 7.0F);
    std::uniform_real_distribution<float> exponent(0.0F, 12.0F);
    std::uniform_int_distribution<unsigned long> size(1, 3000);
    unsigned long nbPixels = 0;
    while (nbPixels < 10'000'000) {
        const unsigned long sizeX = size(random);
        const unsigned long sizeY = size(random);
        const float theta = angle(random);
        const float offset = std::exp2(exponent(random));
        ASSERT_TRUE(hasLines(*buildLines2dImg(sizeX, sizeY, theta, offset), theta, offset));
        nbPixels += sizeX * sizeY;
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
