// Makes lines in a plan and in a volume.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <numbers>

namespace {

float radians(double degrees)
{
    return static_cast<float>(degrees * std::numbers::pi / 180);
}

} // namespace

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc::util;
    const ImagePtr plan = buildLines2dImg(320, 160, radians(30), 12); // across, down; angle; pixels from line to line
    image::io::writeImage("lines.tif", plan);
    const ImagePtr volume = buildLines3dImg(128, 128, 128, radians(20), radians(30), 0, 32);
    image::io::writeImage("volume.tif", volume);
}
