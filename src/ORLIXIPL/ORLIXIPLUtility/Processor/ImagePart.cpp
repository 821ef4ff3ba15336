#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImagePart.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLogMessages.h"

namespace orlix::imaproc::util {

namespace {

void checkAxis(const char* axis, unsigned long first, unsigned long size, unsigned long whole)
{
    if (first > whole || size > whole - first) {
        raise<eORLIXIPLUtilityMessage>(ORLIX_HERE, eORLIXIPLUtilityMessage::ePartOutside, axis, size, first, whole);
    }
}

} // namespace

void checkPart(const ImagePart& part, const image::BaseImage& image)
{
    if (image.getSizeX() != part.wholeX) {
        raise<eORLIXIPLUtilityMessage>(ORLIX_HERE, eORLIXIPLUtilityMessage::ePartOfLines, image.getSizeX(),
                                       part.wholeX);
    }
    checkAxis("y", part.firstLine, image.getSizeY(), part.wholeY);
    checkAxis("z", part.firstPlan.z, image.getSizeZ(), part.wholeZ);
    checkAxis("c", part.firstPlan.c, image.getSizeC(), part.wholeC);
    checkAxis("t", part.firstPlan.t, image.getSizeT(), part.wholeT);
}

} // namespace orlix::imaproc::util
