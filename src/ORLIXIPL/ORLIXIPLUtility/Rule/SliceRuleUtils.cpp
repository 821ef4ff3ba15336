#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceRuleUtils.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/LockAttribute.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

namespace {

class MatchSlice final : public BaseCustomCheckedImageProperty
{
public:
    /// `checked` is the attribute that the property speaks of, `volume` the one that it answers from.
    MatchSlice(const boost::weak_ptr<const BaseImageAttribute>& checked,
               const boost::weak_ptr<const BaseImageAttribute>& volume, const boost::weak_ptr<const attr::InAxis>& axis)
        : m_volume(volume), m_axis(axis)
    {
        initBase(checked);
        enableCheck(eCheckableImageProperty::eSizeX);
        enableCheck(eCheckableImageProperty::eSizeY);
        enableCheck(eCheckableImageProperty::eVolumeGeometry);
    }

    unsigned long getSizeX() const override
    {
        const ImageConstPtr volume = lockVolume(ORLIX_HERE);
        return sliceSizeX(*volume, lockAxis(ORLIX_HERE));
    }
    unsigned long getSizeY() const override
    {
        const ImageConstPtr volume = lockVolume(ORLIX_HERE);
        return sliceSizeY(*volume, lockAxis(ORLIX_HERE));
    }
    image::VolumeGeometry getVolumeGeometry() const override
    {
        const ImageConstPtr volume = lockVolume(ORLIX_HERE);
        static_cast<void>(lockAxis(ORLIX_HERE));
        image::VolumeGeometry geometry;
        geometry.init2d();
        return geometry;
    }
    std::string getReason() const override
    {
        const boost::shared_ptr<const BaseImageAttribute> volume = m_volume.lock();
        return formatMessage<eRuleMessage>(
            eRuleMessage::eSliceOf, EnumerationNames<eAxis>::nameOf(lockAxis(ORLIX_HERE)),
            volume ? volume->getObjectName() : std::string(), lockVolume(ORLIX_HERE)->getGeometry().toString());
    }

private:
    ImageConstPtr lockVolume(const SourcePlace& place) const
    {
        return lockImage<eRuleMessage>(place, eRuleMessage::eInputAttributeNull, m_volume);
    }
    eAxis lockAxis(const SourcePlace& place) const
    {
        return lockAttribute<eRuleMessage>(place, eRuleMessage::eInputAttributeNull, m_axis)->getValue();
    }

    boost::weak_ptr<const BaseImageAttribute> m_volume;
    boost::weak_ptr<const attr::InAxis> m_axis;
};

} // namespace

boost::shared_ptr<BaseCustomCheckedImageProperty> matchSlice(const boost::weak_ptr<const BaseImageAttribute>& volume,
                                                             const boost::weak_ptr<const attr::InAxis>& axis)
{
    return boost::make_shared<MatchSlice>(volume, volume, axis);
}

boost::shared_ptr<BaseCustomCheckedImageProperty> matchSlice(const boost::weak_ptr<const BaseImageAttribute>& slice,
                                                             const boost::weak_ptr<const BaseImageAttribute>& volume,
                                                             const boost::weak_ptr<const attr::InAxis>& axis)
{
    return boost::make_shared<MatchSlice>(slice, volume, axis);
}

} // namespace orlix::imaproc::util
