// What an image has to look like where that follows from other attributes.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseRule.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include <string>
#include <vector>

namespace orlix::imaproc {

/// What a property answers for.
struct eCheckableImageProperty
{
    enum domain {
        eBufferType = 0,
        eSizeX = 1,
        eSizeY = 2,
        eVolumeGeometry = 3,
        eColorGeometry = 4,
        eTemporalGeometry = 5
    };
    ORLIX_ENUMERATION(eCheckableImageProperty, eBufferType);
};

/// Says what an image has to look like, at the moment it is asked: nothing is kept but weak references to attributes.
/// A class overrides what differs from the input image, and enables the checks that count; no check is enabled at
/// first. Asked by one thread at a time. It may outlive the processor whose attributes it reads: then `getInputImage`
/// gives null, and what follows from the input image throws ORLIXImageProcessingException.
class ORLIXIMAGEPROCESSING_API BaseCustomCheckedImageProperty
{
public:
    virtual ~BaseCustomCheckedImageProperty();

    /// `input` may be empty for a class that overrides whatever it enables.
    void initBase(const boost::weak_ptr<const BaseImageAttribute>& input) { m_input = input; }
    void enableCheck(const eCheckableImageProperty& property) { m_enabled |= bitOf(property); }
    bool isCheckEnabled(const eCheckableImageProperty& property) const { return (m_enabled & bitOf(property)) != 0; }

    /// True: the image is as good as any.
    virtual bool areChecksDisable() const;
    /// Types of which every time step has to have one; the input's own unless overridden.
    virtual std::vector<image::eImageBufferType> getAllowedImageBufferTypes() const;
    virtual unsigned long getSizeX() const;
    virtual unsigned long getSizeY() const;
    virtual image::VolumeGeometry getVolumeGeometry() const; ///< compared by kind and size
    virtual image::ColorGeometry getColorGeometry() const;
    virtual image::TemporalGeometry getTemporalGeometry() const; ///< compared by size alone
    /// Why the image of `checked`, which differs, does not fit, in words that stand for the whole text of the failure.
    /// Empty: the rule's words do.
    virtual NumberedText describeMisfit(const BaseImageAttribute& checked) const;
    /// Closes the rule's words: what the image has to fit. Empty for nothing to add.
    virtual std::string getReason() const;

protected:
    /// What the input attribute holds; null where it holds nothing, or is gone.
    ImageConstPtr getInputImage() const;

private:
    static unsigned bitOf(const eCheckableImageProperty& property)
    {
        return 1U << static_cast<eCheckableImageProperty::domain>(property);
    }
    const image::BaseImageGeometry& getInputGeometry(ImageConstPtr& image) const;

    boost::weak_ptr<const BaseImageAttribute> m_input;
    unsigned m_enabled = 0;
};

/// The image has what the property answers, for every check that it enables. A failure's text is the property's or,
/// where it has none, tells the image, on each axis that differs what it has and what it needs, and the property's
/// reason. What the property throws, the check throws.
ORLIXIMAGEPROCESSING_API processor::RulePtr
customImageProperty(const processor::AttributeRef<const BaseImageAttribute>& image,
                    const boost::shared_ptr<const BaseCustomCheckedImageProperty>& property);

} // namespace orlix::imaproc
