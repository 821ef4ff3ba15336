// Attributes that carry whole images or sub-images.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

namespace orlix::imaproc {

struct eImageProcessingAttributeType
{
    enum domain { eImageAttribute = 4, eStripAttribute = 5, eTileCollAttribute = 6 };
    ORLIX_ENUMERATION(eImageProcessingAttributeType, eImageAttribute);
};

class ORLIXIMAGEPROCESSING_API BaseImageProcessingAttribute : public processor::BaseAttribute
{
public:
    processor::eAttributeType getAttributeType() const override
    {
        return processor::eAttributeType::eImageProcessingAttribute;
    }
    virtual eImageProcessingAttributeType getImageProcessingAttributeType() const = 0;
};

/// `getImage` and `getImageBufferType` are for attributes that hold an image: see `isSet` and `isNull`.
class ORLIXIMAGEPROCESSING_API BaseImageAttribute : public BaseImageProcessingAttribute
{
public:
    eImageProcessingAttributeType getImageProcessingAttributeType() const override
    {
        return eImageProcessingAttributeType::eImageAttribute;
    }
    std::string getValueKind() const override;
    const image::BaseImage& getImage() const { return *m_constImage; }
    /// Null where no image is held.
    virtual ImageConstPtr getImagePtr() const = 0;
    image::eImageBufferType getImageBufferType() const { return m_constImage->getBufferType(); }

protected:
    void hold(const image::BaseImage* image)
    {
        m_constImage = image;
        markSet(image == nullptr);
    }
    void letGo()
    {
        m_constImage = nullptr;
        markUnset();
    }

private:
    const image::BaseImage* m_constImage = nullptr; ///< the image that the derived class keeps alive
};

class ORLIXIMAGEPROCESSING_API BaseInputImageAttribute : public BaseImageAttribute
{
public:
    using StorageType = ImageConstPtr;
    static constexpr bool g_bOutput = false;

    bool isOutput() const override { return false; }
    void clear() override { m_image.reset(), letGo(); }

    void init(const ImageConstPtr& image) { m_image = image, hold(m_image.get()); }
    void init(ImageConstPtr&& image) { m_image = std::move(image), hold(m_image.get()); }
    /// Holds an image of the caller's, until `clear`; `getStorage` is null then.
    void borrow(const image::BaseImage* image) { m_image.reset(), hold(image); }
    const ImageConstPtr& getStorage() const { return m_image; }
    ImageConstPtr getImagePtr() const override { return m_image; }

private:
    ImageConstPtr m_image;
};

class ORLIXIMAGEPROCESSING_API BaseOutputImageAttribute : public BaseImageAttribute
{
public:
    using StorageType = ImagePtr;
    static constexpr bool g_bOutput = true;

    bool isOutput() const override { return true; }
    void clear() override { m_image.reset(), m_held = nullptr, letGo(); }
    /// The one element type that images of this attribute have; none where any type will do.
    virtual image::eImageBufferType getFixedBufferType() const { return image::eImageBufferType::eNoBuffer; }

    void init(const ImagePtr& image) { m_image = image, holdOutput(m_image.get()); }
    void init(ImagePtr&& image) { m_image = std::move(image), holdOutput(m_image.get()); }
    /// Holds an image of the caller's, until `clear`; `getStorage` is null then.
    void borrow(image::BaseImage* image) { m_image.reset(), holdOutput(image); }
    const ImagePtr& getStorage() const { return m_image; }
    image::BaseImage& getImage() const { return *m_held; }
    ImageConstPtr getImagePtr() const override { return m_image; }

private:
    void holdOutput(image::BaseImage* image) { m_held = image, hold(image); }

    ImagePtr m_image;
    image::BaseImage* m_held = nullptr; ///< the same, or what is borrowed
};

/// True when both hold the very same pixels, through whatever objects. False where one holds no image.
ORLIXIMAGEPROCESSING_API bool isInSitu(const BaseImageAttribute& input, const BaseImageAttribute& output);

} // namespace orlix::imaproc
