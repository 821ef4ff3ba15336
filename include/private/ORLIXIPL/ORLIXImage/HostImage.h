// An image in the memory of the host, owned or wrapped.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

class HostImage final : public BaseImage
{
public:
    HostImage(const BaseImageGeometry& geometry, PixelLayout layout) : BaseImage(geometry, std::move(layout)) {}

    ProcessingResult<bool> reinitialize(const BaseImageGeometry& geometry) override;
};

} // namespace orlix::image
