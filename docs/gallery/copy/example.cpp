// Copies a volume.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    const ImagePtr head = image::io::readImage("head.tif");
    image::io::writeImage("copy.tif", imaproc::util::copyImg(head));
}
