#include "copy/CopyCases.h"

namespace orlix::bench {

boost::shared_ptr<image::BaseImageGeometry> makeGeometry(const CopyCase& copyCase)
{
    return copyCase.sizeZ == 1 ? image::geometry2d(copyCase.type, copyCase.sizeX, copyCase.sizeY)
                               : image::geometry3d(copyCase.type, copyCase.sizeX, copyCase.sizeY, copyCase.sizeZ);
}

unsigned long getCopyBytes(const CopyCase& copyCase)
{
    return 2 * copyCase.sizeX * copyCase.sizeY * copyCase.sizeZ * image::elementSize(copyCase.type);
}

std::string nameComparison(const CopyCase& copyCase, unsigned long nbThreads)
{
    return std::string("copyImg/") + copyCase.size + '/' + image::getBufferTypeName(copyCase.type) +
           "/threads:" + std::to_string(nbThreads);
}

std::string nameGiven(const char* set)
{
    return std::string("given/") + set;
}

std::string nameNew(const char* set)
{
    return std::string("new/") + set;
}

} // namespace orlix::bench
