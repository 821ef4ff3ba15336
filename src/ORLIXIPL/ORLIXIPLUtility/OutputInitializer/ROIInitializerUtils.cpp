#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/ROIInitializerUtils.h"

#include "ORLIXIPL/ORLIXIPLUtility/HeldAttribute.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

namespace {

/// The attribute, held while it is read, or the error of an initializer.
template <class TAttribute>
boost::shared_ptr<TAttribute> lock(const boost::weak_ptr<TAttribute>& reference, const SourcePlace& place)
{
    return lockHeld<eOutputInitializerMessage>(reference, eOutputInitializerMessage::eInputAttributeNull, place);
}

image::VolumeGeometry volumeOf(unsigned long sizeZ)
{
    image::VolumeGeometry volume;
    volume.init3d(sizeZ);
    return volume;
}

ImagePtr makeLike(const image::BaseImage& image, unsigned long sizeX, unsigned long sizeY,
                  const image::VolumeGeometry& volume)
{
    const image::BaseImageGeometry& from = image.getGeometry();
    const auto with = [&](const auto& type) {
        return image::BaseImageGeometry(type, sizeX, sizeY, volume, from.getColorGeometry(),
                                        from.getTemporalGeometry());
    };
    return image::createImageBeside(image, from.hasUniformBufferType() ? with(from.getBufferType())
                                                                       : with(from.getBufferTypeVector()));
}

} // namespace

GetRoi2dOutputInitializer::GetRoi2dOutputInitializer(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                     const boost::weak_ptr<const attr::InOutputImg2dSize>& size)
    : m_size(size)
{
    initBase(image);
}

unsigned long GetRoi2dOutputInitializer::getSizeX() const
{
    return lock(m_size, ORLIX_HERE)->getDataItemNode().X;
}

unsigned long GetRoi2dOutputInitializer::getSizeY() const
{
    return lock(m_size, ORLIX_HERE)->getDataItemNode().Y;
}

GetRoi3dOutputInitializer::GetRoi3dOutputInitializer(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                     const boost::weak_ptr<const attr::InOutputImg3dSize>& size)
    : m_size(size)
{
    initBase(image);
}

unsigned long GetRoi3dOutputInitializer::getSizeX() const
{
    return lock(m_size, ORLIX_HERE)->getDataItemNode().X;
}

unsigned long GetRoi3dOutputInitializer::getSizeY() const
{
    return lock(m_size, ORLIX_HERE)->getDataItemNode().Y;
}

image::VolumeGeometry GetRoi3dOutputInitializer::getVolumeGeometry() const
{
    return volumeOf(lock(m_size, ORLIX_HERE)->getDataItemNode().Z);
}

boost::shared_ptr<BaseCustomImageInfo> outputROI2d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                   const boost::weak_ptr<const attr::InOutputImg2dSize>& size)
{
    return boost::make_shared<GetRoi2dOutputInitializer>(image, size);
}

boost::shared_ptr<BaseCustomImageInfo> outputROI3d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                   const boost::weak_ptr<const attr::InOutputImg3dSize>& size)
{
    return boost::make_shared<GetRoi3dOutputInitializer>(image, size);
}

ImagePtr makeROI2d(const image::BaseImage& image, const attr::Img2dSize& size)
{
    return makeLike(image, size.X, size.Y, image.getGeometry().getVolumeGeometry());
}

ImagePtr makeROI3d(const image::BaseImage& image, const attr::Img3dSize& size)
{
    return makeLike(image, size.X, size.Y, volumeOf(size.Z));
}

} // namespace orlix::imaproc::util
