// Runs the C++ calls that stand beside another package's on a page of the site, on images as the page says them to be.
#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIO.h"

#include <vector>

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    using namespace orlix::imaproc::util;
    using image::eImageBufferType;

    const auto plan = [](const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY) {
        return image::createImage(*image::geometry2d(type, sizeX, sizeY));
    };
    const ImagePtr a = plan(eImageBufferType::UInt8, 64, 48);
    const ImagePtr b = plan(eImageBufferType::UInt8, 64, 48);
    const ImagePtr g = plan(eImageBufferType::Real32, 64, 48);
    constexpr unsigned long x = 4, y = 3, w2 = 9, h2 = 7;
    const ImagePtr r = plan(eImageBufferType::UInt8, w2, h2);
    for (const ImagePtr& each : {a, b, g, r}) {
        randomImg(attr::createRange(0, 200), each);
    }
    const auto points = attr::createCoords2dColl(std::vector<double>{1.5, 2.25, 40, 3});
    constexpr double low = 10, high = 90, m = 3, sd = 2;
    constexpr float t = 1;
    const char* const f = "coming-from.tif";
    image::io::writeImage(f, b);

#include "coming-from-calls.inc"
}
