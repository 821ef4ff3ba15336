// Every function of the library that takes images, called so that nothing is wrong but, maybe, where the images lie.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"

#include <functional>
#include <ostream>

namespace orlix::imaproc::util::test {

using Images = std::vector<ImagePtr>;

/// A call and the images that it takes, inputs before outputs.
struct ImageCall
{
    std::string name;
    std::vector<image::BaseImageGeometry> geometries;
    std::function<void(const Images&)> run;
    bool bWorksOnDevice = false; ///< where all images are on one and GPU support is switched on
};

inline std::ostream& operator<<(std::ostream& stream, const ImageCall& call)
{
    return stream << call.name;
}

/// Each on an image of one strip and on one of many plans, or volumes.
std::vector<ImageCall> makeImageCalls();

} // namespace orlix::imaproc::util::test
