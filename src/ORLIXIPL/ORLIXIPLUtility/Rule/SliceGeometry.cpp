#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceGeometry.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

boost::shared_ptr<const image::GeometricCalibration> sliceCalibration(const image::BaseImage& volume, const eAxis& axis)
{
    const boost::shared_ptr<const image::GeometricCalibration>& whole = volume.getGeometricCalibration();
    const bool bNeedsZ = axis == eAxis::eX || axis == eAxis::eY;
    if (!whole || (bNeedsZ && !whole->is3d())) {
        return nullptr;
    }
    const auto slice = boost::make_shared<image::GeometricCalibration>();
    switch (static_cast<eAxis::domain>(axis)) {
    case eAxis::eX:
        slice->init2d(whole->getUnit(), whole->getPixelSizeY(), whole->getPixelSizeZ(), whole->getOriginY(),
                      whole->getOriginZ(), whole->getRotationX());
        break;
    case eAxis::eY:
        // A turn about y leads from z to x, and that of the slice from x to z.
        slice->init2d(whole->getUnit(), whole->getPixelSizeX(), whole->getPixelSizeZ(), whole->getOriginX(),
                      whole->getOriginZ(), whole->getRotationY() == 0 ? 0 : -whole->getRotationY());
        break;
    default:
        slice->init2d(whole->getUnit(), whole->getPixelSizeX(), whole->getPixelSizeY(), whole->getOriginX(),
                      whole->getOriginY(), whole->getRotationZ());
        break;
    }
    return slice;
}

ImagePtr createSliceImage(const image::BaseImage& volume, const eAxis& axis)
{
    const image::BaseImageGeometry& whole = volume.getGeometry();
    const unsigned long sizeX = sliceSizeX(volume, axis);
    const unsigned long sizeY = sliceSizeY(volume, axis);
    const auto with = [&](const auto& type) {
        return image::BaseImageGeometry(type, sizeX, sizeY, {}, whole.getColorGeometry(), whole.getTemporalGeometry());
    };
    const ImagePtr slice = image::createImageBeside(
        volume, whole.hasUniformBufferType() ? with(whole.getBufferType()) : with(whole.getBufferTypeVector()));
    slice->setGeometricCalibration(sliceCalibration(volume, axis));
    return slice;
}

ProcessingResult<bool> hasSlice(const image::BaseImage& volume, const eAxis& axis, unsigned long index)
{
    const unsigned long nbSlices = countSlices(volume, axis);
    if (index < nbSlices) {
        return true;
    }
    return ProcessingResult<bool>::failure(formatMessage<eRuleMessage>(eRuleMessage::eNoSuchSlice, index,
                                                                       EnumerationNames<eAxis>::nameOf(axis),
                                                                       volume.getGeometry().toString(), nbSlices));
}

ProcessingResult<bool> takesSlice(const image::BaseImage& volume, const image::BaseImage& slice, const eAxis& axis,
                                  unsigned long index)
{
    if (!slice.getGeometry().hasSameBufferTypes(volume.getGeometry())) {
        return ProcessingResult<bool>::failure(formatMessage<eRuleMessage>(
            eRuleMessage::eSliceTypeDiffers, slice.getGeometry().toString(), volume.getGeometry().toString()));
    }
    return hasSlice(volume, axis, index);
}

} // namespace orlix::imaproc::util
