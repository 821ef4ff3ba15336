// Counts the pixels in which two plans of a volume differ by more than 3000 grey values.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include <iostream>

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr plan25 = util::getSlice3dImg(head, eAxis::eZ, 25);
    const ImagePtr plan35 = util::getSlice3dImg(head, eAxis::eZ, 35);
    const auto found = util::compareImg(plan25, plan35, attr::createImgComparisonAbsoluteTolerance(3000));
    std::cout << found->nbComparedPixels << " compared, " << found->nbDifferentPixels << " differ\n";
}
