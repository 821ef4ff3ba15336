// Sets a box within a volume to white.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr box = imaproc::util::getROI3dImg(head, 40, 40, 20, 48, 48, 60); // first x, y, z; sizes
    imaproc::util::eraseImg(box, 65535);
    imaproc::util::putROI3dImg(head, box, 40, 40, 20); // in place
    image::io::writeImage("erased.tif", head);
}
