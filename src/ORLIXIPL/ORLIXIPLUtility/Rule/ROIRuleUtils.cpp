#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleUtils.h"

#include "ORLIXIPL/ORLIXIPLUtility/HeldAttribute.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/RegionFit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace orlix::imaproc::util {

namespace {

using Property = eCheckableImageProperty;

struct AxisX
{
    static constexpr const char* g_name = "x";
    template <class TRecord>
    static unsigned long of(const TRecord& record)
    {
        return record.X;
    }
    static unsigned long of(const image::BaseImage& image) { return image.getSizeX(); }
};
struct AxisY
{
    static constexpr const char* g_name = "y";
    template <class TRecord>
    static unsigned long of(const TRecord& record)
    {
        return record.Y;
    }
    static unsigned long of(const image::BaseImage& image) { return image.getSizeY(); }
};
struct AxisZ
{
    static constexpr const char* g_name = "z";
    template <class TRecord>
    static unsigned long of(const TRecord& record)
    {
        return record.Z;
    }
    static unsigned long of(const image::BaseImage& image) { return image.getSizeZ(); }
};

const image::BaseImage& valueOf(const BaseImageAttribute& attribute)
{
    return attribute.getImage();
}
template <class TAttribute>
const auto& valueOf(const TAttribute& attribute)
{
    return attribute.getDataItemNode();
}

/// The attribute, held while it is read, or the error of a property.
template <class TAttribute>
boost::shared_ptr<TAttribute> lock(const boost::weak_ptr<TAttribute>& reference, const SourcePlace& place)
{
    return lockHeld<eRuleMessage>(reference, eRuleMessage::eInputAttributeNull, place);
}

template <class TAxis, class TAttribute>
unsigned long read(const boost::weak_ptr<TAttribute>& reference, const SourcePlace& place)
{
    const boost::shared_ptr<TAttribute> attribute = lock(reference, place);
    return TAxis::of(valueOf(*attribute));
}

/// The end of the region, or the size of the image where that is larger.
template <class TAxis, class TOffset, class TSize>
unsigned long minSize(const ImageConstPtr& image, const boost::weak_ptr<TOffset>& offset,
                      const boost::weak_ptr<TSize>& size, const SourcePlace& place)
{
    const unsigned long begin = read<TAxis>(offset, place);
    const unsigned long end = begin + read<TAxis>(size, place);
    if (!image) {
        raise<eImageRuleMessage>(place, eImageRuleMessage::ePropertyWithoutInput);
    }
    return std::max(end, TAxis::of(*image));
}

image::VolumeGeometry volumeOf(unsigned long sizeZ)
{
    image::VolumeGeometry volume;
    volume.init3d(sizeZ);
    return volume;
}

template <class... TAxes, class TOffset, class TSize>
NumberedText misfit(const BaseImageAttribute& checked, const boost::weak_ptr<TOffset>& offset,
                    const boost::weak_ptr<TSize>& size, const SourcePlace& place)
{
    return describeRegionMisfit(checked, {RegionAxis{TAxes::g_name, TAxes::of(checked.getImage()),
                                                     read<TAxes>(offset, place), read<TAxes>(size, place)}...});
}

class RegionWithinRule final : public processor::BaseRule
{
public:
    RegionWithinRule(const processor::AttributeRef<const BaseImageAttribute>& image,
                     const CheckedImagePropertyPtr& property)
        : m_image(image), m_property(property)
    {}

    ProcessingResult<bool> check() const override
    {
        const BaseImageAttribute* const image = m_image.access();
        if (image == nullptr || !image->isHeld()) {
            return ProcessingResult<bool>::failure(
                formatMessage<eImageRuleMessage>(eImageRuleMessage::ePropertyWithoutInput));
        }
        const NumberedText text = m_property->describeMisfit(*image);
        return text.empty() ? ProcessingResult<bool>(true) : ProcessingResult<bool>::failure(text);
    }

private:
    processor::AttributeRef<const BaseImageAttribute> m_image;
    CheckedImagePropertyPtr m_property;
};

constexpr std::initializer_list<Property::domain> g_checks2d = {Property::eSizeX, Property::eSizeY};
constexpr std::initializer_list<Property::domain> g_checks3d = {Property::eSizeX, Property::eSizeY,
                                                                Property::eVolumeGeometry};

template <class TProperty, class... TArgs>
CheckedImagePropertyPtr makeProperty(std::initializer_list<Property::domain> checks, const TArgs&... args)
{
    const auto property = boost::make_shared<TProperty>(args...);
    for (const Property::domain check : checks) {
        property->enableCheck(check);
    }
    return property;
}

} // namespace

GetRoi2dMinInputImageSize::GetRoi2dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                     const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                                                     const boost::weak_ptr<const attr::InOutputImg2dSize>& size)
    : m_offset(offset), m_size(size)
{
    initBase(image);
}

unsigned long GetRoi2dMinInputImageSize::getSizeX() const
{
    return minSize<AxisX>(getInputImage(), m_offset, m_size, ORLIX_HERE);
}

unsigned long GetRoi2dMinInputImageSize::getSizeY() const
{
    return minSize<AxisY>(getInputImage(), m_offset, m_size, ORLIX_HERE);
}

NumberedText GetRoi2dMinInputImageSize::describeMisfit(const BaseImageAttribute& checked) const
{
    return misfit<AxisX, AxisY>(checked, m_offset, m_size, ORLIX_HERE);
}

PutRoi2dMinInputImageSize::PutRoi2dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                     const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                                                     const boost::weak_ptr<const BaseImageAttribute>& roi)
    : m_offset(offset), m_roi(roi)
{
    initBase(image);
}

unsigned long PutRoi2dMinInputImageSize::getSizeX() const
{
    return minSize<AxisX>(getInputImage(), m_offset, m_roi, ORLIX_HERE);
}

unsigned long PutRoi2dMinInputImageSize::getSizeY() const
{
    return minSize<AxisY>(getInputImage(), m_offset, m_roi, ORLIX_HERE);
}

NumberedText PutRoi2dMinInputImageSize::describeMisfit(const BaseImageAttribute& checked) const
{
    return misfit<AxisX, AxisY>(checked, m_offset, m_roi, ORLIX_HERE);
}

GetRoi3dMinInputImageSize::GetRoi3dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                     const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                                                     const boost::weak_ptr<const attr::InOutputImg3dSize>& size)
    : m_offset(offset), m_size(size)
{
    initBase(image);
}

unsigned long GetRoi3dMinInputImageSize::getSizeX() const
{
    return minSize<AxisX>(getInputImage(), m_offset, m_size, ORLIX_HERE);
}

unsigned long GetRoi3dMinInputImageSize::getSizeY() const
{
    return minSize<AxisY>(getInputImage(), m_offset, m_size, ORLIX_HERE);
}

image::VolumeGeometry GetRoi3dMinInputImageSize::getVolumeGeometry() const
{
    return volumeOf(minSize<AxisZ>(getInputImage(), m_offset, m_size, ORLIX_HERE));
}

NumberedText GetRoi3dMinInputImageSize::describeMisfit(const BaseImageAttribute& checked) const
{
    return misfit<AxisX, AxisY, AxisZ>(checked, m_offset, m_size, ORLIX_HERE);
}

PutRoi3dMinInputImageSize::PutRoi3dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                     const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                                                     const boost::weak_ptr<const BaseImageAttribute>& roi)
    : m_offset(offset), m_roi(roi)
{
    initBase(image);
}

unsigned long PutRoi3dMinInputImageSize::getSizeX() const
{
    return minSize<AxisX>(getInputImage(), m_offset, m_roi, ORLIX_HERE);
}

unsigned long PutRoi3dMinInputImageSize::getSizeY() const
{
    return minSize<AxisY>(getInputImage(), m_offset, m_roi, ORLIX_HERE);
}

image::VolumeGeometry PutRoi3dMinInputImageSize::getVolumeGeometry() const
{
    return volumeOf(minSize<AxisZ>(getInputImage(), m_offset, m_roi, ORLIX_HERE));
}

NumberedText PutRoi3dMinInputImageSize::describeMisfit(const BaseImageAttribute& checked) const
{
    return misfit<AxisX, AxisY, AxisZ>(checked, m_offset, m_roi, ORLIX_HERE);
}

GetRoi2dOutputImageSize::GetRoi2dOutputImageSize(const boost::weak_ptr<const attr::InOutputImg2dSize>& size)
    : m_size(size)
{
    initBase(boost::weak_ptr<const BaseImageAttribute>());
}

unsigned long GetRoi2dOutputImageSize::getSizeX() const
{
    return read<AxisX>(m_size, ORLIX_HERE);
}

unsigned long GetRoi2dOutputImageSize::getSizeY() const
{
    return read<AxisY>(m_size, ORLIX_HERE);
}

GetRoi3dOutputImageSize::GetRoi3dOutputImageSize(const boost::weak_ptr<const attr::InOutputImg3dSize>& size)
    : m_size(size)
{
    initBase(boost::weak_ptr<const BaseImageAttribute>());
}

unsigned long GetRoi3dOutputImageSize::getSizeX() const
{
    return read<AxisX>(m_size, ORLIX_HERE);
}

unsigned long GetRoi3dOutputImageSize::getSizeY() const
{
    return read<AxisY>(m_size, ORLIX_HERE);
}

image::VolumeGeometry GetRoi3dOutputImageSize::getVolumeGeometry() const
{
    return volumeOf(read<AxisZ>(m_size, ORLIX_HERE));
}

CheckedImagePropertyPtr containsROI2d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                      const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                                      const boost::weak_ptr<const attr::InOutputImg2dSize>& size)
{
    return makeProperty<GetRoi2dMinInputImageSize>(g_checks2d, image, offset, size);
}

CheckedImagePropertyPtr containsROI2d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                      const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                                      const boost::weak_ptr<const BaseImageAttribute>& roi)
{
    return makeProperty<PutRoi2dMinInputImageSize>(g_checks2d, image, offset, roi);
}

CheckedImagePropertyPtr containsROI3d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                      const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                                      const boost::weak_ptr<const attr::InOutputImg3dSize>& size)
{
    return makeProperty<GetRoi3dMinInputImageSize>(g_checks3d, image, offset, size);
}

CheckedImagePropertyPtr containsROI3d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                      const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                                      const boost::weak_ptr<const BaseImageAttribute>& roi)
{
    return makeProperty<PutRoi3dMinInputImageSize>(g_checks3d, image, offset, roi);
}

CheckedImagePropertyPtr matchROI2d(const boost::weak_ptr<const attr::InOutputImg2dSize>& size)
{
    return makeProperty<GetRoi2dOutputImageSize>(g_checks2d, size);
}

CheckedImagePropertyPtr matchROI3d(const boost::weak_ptr<const attr::InOutputImg3dSize>& size)
{
    return makeProperty<GetRoi3dOutputImageSize>(g_checks3d, size);
}

processor::RulePtr regionWithin(const processor::AttributeRef<const BaseImageAttribute>& image,
                                const CheckedImagePropertyPtr& property)
{
    return boost::make_shared<RegionWithinRule>(image, property);
}

} // namespace orlix::imaproc::util
