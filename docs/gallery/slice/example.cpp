// Cuts the head from its front to its back, and the same volume across y and z.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr head = image::io::readImage("head.tif");
    image::io::writeImage("side.tif", util::getSlice3dImg(head, eAxis::eX, 64));
    image::io::writeImage("back.tif", util::getSlice3dImg(head, eAxis::eY, 64));
    image::io::writeImage("top.tif", util::getSlice3dImg(head, eAxis::eZ, 35));
}
