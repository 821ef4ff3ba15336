// Cuts a box out of a volume.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr front = imaproc::util::getROI3dImg(head, 32, 0, 20, 64, 64, 40); // first x, y, z; sizes
    image::io::writeImage("front.tif", front);
}
