#include "ORLIXIPL/ORLIXImageProcessing/Rule/CustomImageProperty.h"

#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"
#include "ORLIXIPL/ORLIXImageProcessing/HeldImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/RangeRules.h"

#include <algorithm>

namespace orlix::imaproc {

namespace {

using Property = eCheckableImageProperty;

/// Gathers what an image lacks: "600 along y where it has 512".
class Differences
{
public:
    void compare(unsigned long found, unsigned long wanted, const char* axis)
    {
        if (found != wanted) {
            add(std::to_string(wanted) + " along " + axis + " where it has " + std::to_string(found));
        }
    }
    void compareVolume(const image::VolumeGeometry& found, const image::VolumeGeometry& wanted)
    {
        if (found != wanted) {
            add(describe(wanted) + " where it has " + describe(found));
        }
    }
    void compareTypes(const image::BaseImageGeometry& found, const std::vector<image::eImageBufferType>& allowed)
    {
        const auto isAllowed = [&](const image::eImageBufferType& type) {
            return std::ranges::find(allowed, type) != allowed.end();
        };
        const std::vector<image::eImageBufferType> types = found.getBufferTypeVector();
        if (!isAllowed(found.getBufferType()) || !std::ranges::all_of(types, isAllowed)) {
            std::string names;
            for (const image::eImageBufferType& type : allowed) {
                names.append(names.empty() ? "" : " or ").append(image::getBufferTypeName(type));
            }
            add("element type " + names);
        }
    }
    const std::string& getText() const { return m_text; }

private:
    static std::string describe(const image::VolumeGeometry& volume)
    {
        return volume.is3d() ? "a volume of " + std::to_string(volume.getSizeZ()) + " along z"
                             : std::string("a single plan");
    }
    void add(const std::string& text) { m_text.append(m_text.empty() ? "" : ", ").append(text); }

    std::string m_text;
};

class CustomImagePropertyRule final : public processor::BaseRule
{
public:
    CustomImagePropertyRule(const ImageAttributeRef& image,
                            const boost::shared_ptr<const BaseCustomCheckedImageProperty>& property)
        : m_image(image), m_property(property)
    {}

    ProcessingResult<bool> check() const override
    {
        const BaseImageAttribute* attribute = m_image.access();
        if (ProcessingResult<bool> result = details::checkHeld(attribute); !result || m_property->areChecksDisable()) {
            return result;
        }
        const image::BaseImageGeometry& found = attribute->getImage().getGeometry();
        Differences differences;
        if (m_property->isCheckEnabled(Property::eBufferType)) {
            differences.compareTypes(found, m_property->getAllowedImageBufferTypes());
        }
        if (m_property->isCheckEnabled(Property::eSizeX)) {
            differences.compare(found.getSizeX(), m_property->getSizeX(), "x");
        }
        if (m_property->isCheckEnabled(Property::eSizeY)) {
            differences.compare(found.getSizeY(), m_property->getSizeY(), "y");
        }
        if (m_property->isCheckEnabled(Property::eVolumeGeometry)) {
            differences.compareVolume(found.getVolumeGeometry(), m_property->getVolumeGeometry());
        }
        if (m_property->isCheckEnabled(Property::eColorGeometry)) {
            differences.compare(found.getSizeC(), m_property->getColorGeometry().getSizeC(), "c");
        }
        if (m_property->isCheckEnabled(Property::eTemporalGeometry)) {
            differences.compare(found.getSizeT(), m_property->getTemporalGeometry().getSizeT(), "t");
        }
        return differences.getText().empty() ? ProcessingResult<bool>(true) : fail(*attribute, differences.getText());
    }

private:
    ProcessingResult<bool> fail(const BaseImageAttribute& attribute, const std::string& differences) const
    {
        if (const NumberedText own = m_property->describeMisfit(attribute); !own.empty()) {
            return ProcessingResult<bool>::failure(own);
        }
        const std::string& name = attribute.getObjectName();
        const std::string found = attribute.getImage().getGeometry().toString();
        const std::string reason = m_property->getReason();
        return ProcessingResult<bool>::failure(
            reason.empty()
                ? formatMessage<eImageRuleMessage>(eImageRuleMessage::ePropertyDiffers, name, found, differences)
                : formatMessage<eImageRuleMessage>(eImageRuleMessage::ePropertyDiffersFor, name, found, differences,
                                                   reason));
    }

    ImageAttributeRef m_image;
    boost::shared_ptr<const BaseCustomCheckedImageProperty> m_property;
};

} // namespace

BaseCustomCheckedImageProperty::~BaseCustomCheckedImageProperty() = default;

bool BaseCustomCheckedImageProperty::areChecksDisable() const
{
    return false;
}

std::vector<image::eImageBufferType> BaseCustomCheckedImageProperty::getAllowedImageBufferTypes() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getBufferTypeVector();
}

unsigned long BaseCustomCheckedImageProperty::getSizeX() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getSizeX();
}

unsigned long BaseCustomCheckedImageProperty::getSizeY() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getSizeY();
}

image::VolumeGeometry BaseCustomCheckedImageProperty::getVolumeGeometry() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getVolumeGeometry();
}

image::ColorGeometry BaseCustomCheckedImageProperty::getColorGeometry() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getColorGeometry();
}

image::TemporalGeometry BaseCustomCheckedImageProperty::getTemporalGeometry() const
{
    ImageConstPtr image;
    return getInputGeometry(image).getTemporalGeometry();
}

NumberedText BaseCustomCheckedImageProperty::describeMisfit(const BaseImageAttribute&) const
{
    return {};
}

std::string BaseCustomCheckedImageProperty::getReason() const
{
    return {};
}

ImageConstPtr BaseCustomCheckedImageProperty::getInputImage() const
{
    return imageHeldBy(m_input);
}

const image::BaseImageGeometry& BaseCustomCheckedImageProperty::getInputGeometry(ImageConstPtr& image) const
{
    image = getInputImage();
    return requireImage(image).getGeometry();
}

processor::RulePtr customImageProperty(const processor::AttributeRef<const BaseImageAttribute>& image,
                                       const boost::shared_ptr<const BaseCustomCheckedImageProperty>& property)
{
    return boost::make_shared<CustomImagePropertyRule>(image, property);
}

} // namespace orlix::imaproc
