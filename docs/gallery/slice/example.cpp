// Cuts the slice between front and back through the middle of a volume.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr head = image::io::readImage("head.tif");
    image::io::writeImage("slice.png", util::getSlice3dImg(head, eAxis::eY, 64));
}
