// Makes a sequence of two plans of a volume.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr plan25 = util::getSlice3dImg(head, eAxis::eZ, 25);
    const ImagePtr plan35 = util::getSlice3dImg(head, eAxis::eZ, 35);
    image::io::writeImage("sequence.tif", util::appendSeqImg(plan25, plan35));
}
