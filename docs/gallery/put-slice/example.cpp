// Puts the slice through the middle of a volume in a second place.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr front = util::getSlice3dImg(head, eAxis::eY, 64);
    image::io::writeImage("doubled.tif", util::putSlice3dImg(head, front, eAxis::eY, 8));
}
