// Views of images, wherever those lie.
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include "ORLIXIPL/ORLIXImage/CudaImage.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

SubImage::~SubImage() = default;

ImagePtr makeView(const BaseImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c,
                  unsigned long t)
{
    if (!parent.getPixelLayout().first) {
        if (const auto* const onDevice = dynamic_cast<const CudaImage*>(&parent)) {
            return boost::make_shared<CudaImage>(*onDevice, std::move(geometry), z, c, t);
        }
    }
    return boost::make_shared<SubImage>(parent, std::move(geometry), z, c, t);
}

} // namespace orlix::image
