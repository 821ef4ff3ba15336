// Makes noise in which each value from 64 to 191 is as likely as any other.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr noise = image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 192, 96));
    const util::RandomRunScope run(1, 0); // the seed, so that the same noise can be made again
    util::randomImg(attr::createRange(64, 191), noise);
    image::io::writeImage("noise.tif", noise);
}
