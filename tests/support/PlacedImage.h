// Images that pass for lying where a test wants them, whatever their size and the caches of the machine.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <boost/make_shared.hpp>

namespace orlix::testing {

/// The pixels of another image, whose memory it keeps alive, said to lie in `place`: a few kilobytes then go through
/// the loops that kernels keep for what no cache holds.
class PlacedImage final : public image::BaseImage
{
public:
    PlacedImage(const image::BaseImage& image, simd::eMemoryPlace place)
        : BaseImage(image.getGeometry(), placed(image.getPixelLayout(), place))
    {}

private:
    static image::PixelLayout placed(image::PixelLayout layout, simd::eMemoryPlace place)
    {
        layout.place = place;
        return layout;
    }
};

inline ImagePtr placedIn(simd::eMemoryPlace place, const image::BaseImage& image)
{
    return boost::make_shared<PlacedImage>(image, place);
}

} // namespace orlix::testing
