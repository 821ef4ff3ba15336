// Making owned images, and the checked way to their plans.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/HostImage.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/StepTable.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

ImagePtr createImage(const BaseImageGeometry& geometry)
{
    return boost::make_shared<HostImage>(geometry, allocateDense(geometry));
}

void* details::checkedPlanData(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t,
                               bool bTypeMatches)
{
    if (z >= image.getSizeZ() || c >= image.getSizeC() || t >= image.getSizeT()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::ePlanOutOfRange, z, c, t,
                                  image.getGeometry().toString());
    }
    if (!bTypeMatches) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eStorageTypeMismatch, t,
                                  getBufferTypeName(image.getBufferType(t)), image.getGeometry().toString());
    }
    if (!image.getPixelLayout().first) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoHostPixels, image.getGeometry().toString());
    }
    return image.accessRow(0, z, c, t);
}

unsigned long rowPitch(const BaseImage& image, unsigned long t)
{
    const PixelLayout& layout = image.getPixelLayout();
    const unsigned long size = elementSize(image.getBufferType(t));
    if (size == 0 || !layout.first) {
        return image.getSizeX();
    }
    return (layout.steps ? (*layout.steps)[t].rowBytes : layout.rowBytes) / size;
}

} // namespace orlix::image
