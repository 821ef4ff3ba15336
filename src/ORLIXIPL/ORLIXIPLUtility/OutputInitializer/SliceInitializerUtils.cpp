#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/SliceInitializerUtils.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/LockAttribute.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

namespace {

class SliceOutputInitializer final : public BaseFromImageCustomImageInfo
{
public:
    SliceOutputInitializer(const boost::weak_ptr<const BaseImageAttribute>& volume,
                           const boost::weak_ptr<const attr::InAxis>& axis)
        : m_axis(axis)
    {
        initBase(volume);
    }

    unsigned long getSizeX() const override
    {
        const ImageConstPtr volume = takeVolume(ORLIX_HERE);
        return sliceSizeX(*volume, lockAxis(ORLIX_HERE));
    }
    unsigned long getSizeY() const override
    {
        const ImageConstPtr volume = takeVolume(ORLIX_HERE);
        return sliceSizeY(*volume, lockAxis(ORLIX_HERE));
    }
    image::VolumeGeometry getVolumeGeometry() const override
    {
        const ImageConstPtr volume = takeVolume(ORLIX_HERE);
        static_cast<void>(lockAxis(ORLIX_HERE));
        image::VolumeGeometry geometry;
        geometry.init2d();
        return geometry;
    }
    boost::shared_ptr<const image::GeometricCalibration> getGeometricCalibration() const override
    {
        const ImageConstPtr volume = takeVolume(ORLIX_HERE);
        return sliceCalibration(*volume, lockAxis(ORLIX_HERE));
    }

private:
    ImageConstPtr takeVolume(const SourcePlace& place) const
    {
        ImageConstPtr volume = getInputImage();
        if (!volume) {
            raise<eOutputInitializerMessage>(place, eOutputInitializerMessage::eInputAttributeNull);
        }
        return volume;
    }
    eAxis lockAxis(const SourcePlace& place) const
    {
        return lockAttribute<eOutputInitializerMessage>(place, eOutputInitializerMessage::eInputAttributeNull, m_axis)
            ->getValue();
    }

    boost::weak_ptr<const attr::InAxis> m_axis;
};

} // namespace

boost::shared_ptr<BaseCustomImageInfo> outputSlice(const boost::weak_ptr<const BaseImageAttribute>& volume,
                                                   const boost::weak_ptr<const attr::InAxis>& axis)
{
    return boost::make_shared<SliceOutputInitializer>(volume, axis);
}

} // namespace orlix::imaproc::util
