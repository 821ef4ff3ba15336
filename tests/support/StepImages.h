// Images whose time steps lie in different memory.
#pragma once

#include "ORLIXIPL/ORLIXImage/SubImage.h"
#include "support/Images.h"

#include <boost/make_shared.hpp>

#include <utility>
#include <vector>

namespace orlix::testing {

/// The geometry with those types, one a time step.
inline image::BaseImageGeometry withTypes(const image::BaseImageGeometry& geometry,
                                          const std::vector<image::eImageBufferType>& types)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(types.size());
    return {
        types,   geometry.getSizeX(), geometry.getSizeY(), geometry.getVolumeGeometry(), geometry.getColorGeometry(),
        temporal};
}

/// As `makeRandom`, but the image has grown from one time step to all, one by one.
inline ImagePtr makeGrown(const image::BaseImageGeometry& geometry, unsigned long seed = 1)
{
    const std::vector<image::eImageBufferType> types = geometry.getBufferTypeVector();
    ImagePtr image;
    for (auto end = types.begin(); end != types.end();) {
        const image::BaseImageGeometry steps = withTypes(geometry, {types.begin(), ++end});
        if (!image) {
            image = image::createImage(steps);
        } else {
            EXPECT_TRUE(image->reinitialize(steps));
        }
    }
    fillRandom(*image, seed);
    return image;
}

/// A view of the time steps of both, which agree in all other sizes.
inline ImagePtr joined(const ImagePtr& first, const ImagePtr& second)
{
    std::vector<image::eImageBufferType> types = first->getGeometry().getBufferTypeVector();
    const std::vector<image::eImageBufferType> others = second->getGeometry().getBufferTypeVector();
    types.insert(types.end(), others.begin(), others.end());
    return boost::make_shared<image::SubImage>(std::vector<const image::BaseImage*>{first.get(), second.get()},
                                               withTypes(first->getGeometry(), types));
}

} // namespace orlix::testing
