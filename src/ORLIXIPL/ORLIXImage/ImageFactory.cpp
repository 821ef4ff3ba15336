// Making owned images, and the checked way to their plans.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/HostImage.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/PixelMemory.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

ImagePtr createImage(const BaseImageGeometry& geometry)
{
    DenseLayout dense = makeDenseLayout(geometry);
    dense.layout.owner = allocatePixels(dense.bytes);
    if (!dense.layout.owner) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eOutOfMemory, geometry.toString(), dense.bytes);
    }
    dense.layout.first = static_cast<std::byte*>(dense.layout.owner.get());
    return boost::make_shared<HostImage>(geometry, std::move(dense.layout));
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

unsigned long rowPitch(const BaseImage& image)
{
    const unsigned long size = elementSize(image.getBufferType());
    return size > 0 ? image.getPixelLayout().rowBytes / size : image.getSizeX();
}

} // namespace orlix::image
