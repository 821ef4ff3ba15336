// Puts a part of a volume into another place of it.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc::util;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr front = getROI3dImg(head, 32, 0, 20, 64, 64, 40);
    putROI3dImg(head, front, 0, 64, 56); // x, y, z; in place
    image::io::writeImage("pasted.tif", head);
}
