// Makes noise of a normal law.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr grain = image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 192, 96));
    const util::RandomRunScope run(1, 0); // the seed, so that the same noise can be made again
    util::gaussianRandomImg(attr::createGaussianParameter(128, 32), grain);
    image::io::writeImage("grain.tif", grain);
}
