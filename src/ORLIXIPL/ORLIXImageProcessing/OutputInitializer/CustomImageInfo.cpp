#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomImageInfo.h"

#include "ORLIXIPL/ORLIXImageProcessing/HeldImage.h"

namespace orlix::imaproc {

BaseCustomImageInfo::~BaseCustomImageInfo() = default;

bool BaseCustomImageInfo::isOutputInitNeeded() const
{
    return true;
}

std::vector<image::eImageBufferType> BaseCustomImageInfo::getImageBufferTypeVector() const
{
    return std::vector<image::eImageBufferType>(getTemporalGeometry().getSizeT(), getImageBufferType());
}

eImageStoragePolicy BaseCustomImageInfo::getImageInitializerDistributionPolicy() const
{
    return eImageStoragePolicy::eDefaultStorage;
}

boost::shared_ptr<const image::GeometricCalibration> BaseCustomImageInfo::getGeometricCalibration() const
{
    const ImageConstPtr input = hasInputImage() ? getInputImage() : ImageConstPtr();
    return input ? input->getGeometricCalibration() : nullptr;
}

image::eImageBufferType BaseFromImageCustomImageInfo::getImageBufferType() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getBufferType();
}

std::vector<image::eImageBufferType> BaseFromImageCustomImageInfo::getImageBufferTypeVector() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getBufferTypeVector();
}

unsigned long BaseFromImageCustomImageInfo::getSizeX() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getSizeX();
}

unsigned long BaseFromImageCustomImageInfo::getSizeY() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getSizeY();
}

image::VolumeGeometry BaseFromImageCustomImageInfo::getVolumeGeometry() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getVolumeGeometry();
}

image::ColorGeometry BaseFromImageCustomImageInfo::getColorGeometry() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getColorGeometry();
}

image::TemporalGeometry BaseFromImageCustomImageInfo::getTemporalGeometry() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getTemporalGeometry();
}

bool BaseFromImageCustomImageInfo::hasInputImage() const
{
    return true;
}

ImageConstPtr BaseFromImageCustomImageInfo::getInputImage() const
{
    return imageHeldBy(m_input);
}

const image::BaseImageGeometry& BaseFromImageCustomImageInfo::getInputGeometry(ImageConstPtr& image) const
{
    image = getInputImage();
    return requireImage(image).getGeometry();
}

} // namespace orlix::imaproc
