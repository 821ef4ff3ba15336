// Growing in place.
#include "ORLIXIPL/ORLIXImage/HostImage.h"

#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/FindMemoryPlace.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/PixelBytes.h"
#include "ORLIXIPL/ORLIXImage/StepTable.h"

namespace orlix::image {

namespace {

bool hasStepsBehind(const BaseImageGeometry& grown, const BaseImageGeometry& image)
{
    if (grown.getSizeX() != image.getSizeX() || grown.getSizeY() != image.getSizeY() ||
        grown.getVolumeGeometry() != image.getVolumeGeometry() ||
        grown.getColorGeometry() != image.getColorGeometry() || grown.getSizeT() < image.getSizeT()) {
        return false;
    }
    const bool bOneType = grown.hasUniformBufferType() && image.hasUniformBufferType();
    for (unsigned long t = 0; t < (bOneType ? std::min(image.getSizeT(), 1UL) : image.getSizeT()); ++t) {
        if (grown.getBufferType(t) != image.getBufferType(t)) {
            return false;
        }
    }
    return true;
}

// What comes behind the first `nbSteps` steps, as an image of its own.
BaseImageGeometry geometryBehind(const BaseImageGeometry& grown, unsigned long nbSteps)
{
    TemporalGeometry temporal;
    temporal.initSequence(grown.getSizeT() - nbSteps);
    const auto with = [&](const auto& type) {
        return BaseImageGeometry(type, grown.getSizeX(), grown.getSizeY(), grown.getVolumeGeometry(),
                                 grown.getColorGeometry(), temporal);
    };
    if (grown.hasUniformBufferType()) {
        return with(grown.getBufferType());
    }
    std::vector<eImageBufferType> types = grown.getBufferTypeVector();
    types.erase(types.begin(), types.begin() + static_cast<long>(nbSteps));
    return with(types);
}

} // namespace

ProcessingResult<bool> HostImage::reinitialize(const BaseImageGeometry& geometry)
{
    const BaseImageGeometry& own = getGeometry();
    if (getImageType() != eImageType::eOwnedImage) {
        return BaseImage::reinitialize(geometry);
    }
    if (!hasStepsBehind(geometry, own)) {
        return BoolResult::failure(
            formatMessage<eORLIXImageMessage>(eORLIXImageMessage::eNotGrowth, own.toString(), geometry.toString()));
    }
    if (geometry.getSizeT() == own.getSizeT()) {
        setGeometryAndLayout(geometry, getPixelLayout());
        return true;
    }
    const PixelLayout added = allocateDense(geometryBehind(geometry, own.getSizeT()));
    PixelLayout layout = own.getSizeT() == 0 ? added : getPixelLayout();
    // Without pixels there is no place to tell, and there may be steps without end.
    if (own.getSizeT() > 0 && geometry.getNbPixels() > 0) {
        StepTable table;
        addSteps(table, getPixelLayout(), 0, own.getSizeT());
        addSteps(table, added, 0, geometry.getSizeT() - own.getSizeT());
        setSteps(layout, std::move(table));
        layout.place = findMemoryPlace(pixelBytesOf(geometry));
    }
    setGeometryAndLayout(geometry, std::move(layout));
    return true;
}

} // namespace orlix::image
