// Making owned images, and the checked way to their plans.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/HostImage.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/StepTable.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

namespace {

/// Pixels of a row lie side by side, and each row behind the one before.
void checkForwards(const BaseImage& image, unsigned long t)
{
    const StepLayout step = stepOf(image.getPixelLayout(), t);
    if (step.pixelStride != 1 || step.rowBytes < 0) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNotForwards, image.getGeometry().toString());
    }
}

} // namespace

ImagePtr createImage(const BaseImageGeometry& geometry)
{
    return boost::make_shared<HostImage>(geometry, allocateDense(geometry));
}

void* details::checkedPlanData(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t,
                               bool bTypeMatches, bool bAnyStrides)
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
    if (!bAnyStrides) {
        checkForwards(image, t);
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
    checkForwards(image, t);
    return static_cast<unsigned long>(stepOf(layout, t).rowBytes) / size;
}

ElementStrides elementStrides(const BaseImage& image, unsigned long t)
{
    const PixelLayout& layout = image.getPixelLayout();
    if (!layout.first) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoHostPixels, image.getGeometry().toString());
    }
    if (image.getGeometry().getNbPixels() == 0) {
        return {1, 0, 0, 0, 0};
    }
    if (t >= image.getSizeT()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::ePlanOutOfRange, 0UL, 0UL, t,
                                  image.getGeometry().toString());
    }
    const StepLayout step = stepOf(layout, t);
    const auto size = static_cast<long>(elementSize(image.getBufferType(t)));
    const auto along = [size](unsigned long axisSize, long bytes) { return axisSize > 1 ? bytes / size : 0; };
    return {step.pixelStride, along(image.getSizeY(), step.rowBytes), along(image.getSizeZ(), step.planBytes),
            along(image.getSizeC(), step.channelBytes), layout.steps ? 0 : along(image.getSizeT(), layout.stepBytes)};
}

} // namespace orlix::image
