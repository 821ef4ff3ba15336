// What images have to look like for a region of them to be taken out or put in.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/CustomImageProperty.h"

namespace orlix::imaproc::util {

// The smallest sizes of an image that holds a region: on each axis the end of the region or, if that is larger, the
// size that the image has. So an image is of these sizes exactly where the region lies within it. Ends are counted in
// 64 bits and may come round to a small number; `regionWithin` is the rule for those.
//
// Each getter holds the attributes while it reads them, and raises ORLIXIPLUtilityException "Input attribute should not
// be null" for the first, in the order of the constructor's arguments behind `image`, that is null, gone, or holds
// nothing; after them the same holds of the image, with the base's text.

/// Of a region whose size an attribute tells.
class ORLIXIPLUTILITY_API GetRoi2dMinInputImageSize : public BaseCustomCheckedImageProperty
{
public:
    GetRoi2dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                              const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                              const boost::weak_ptr<const attr::InOutputImg2dSize>& size);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    NumberedText describeMisfit(const BaseImageAttribute& checked) const override;

private:
    boost::weak_ptr<const attr::InInputImg2dOffset> m_offset;
    boost::weak_ptr<const attr::InOutputImg2dSize> m_size;
};

/// Of a region that an image is put into.
class ORLIXIPLUTILITY_API PutRoi2dMinInputImageSize : public BaseCustomCheckedImageProperty
{
public:
    PutRoi2dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                              const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                              const boost::weak_ptr<const BaseImageAttribute>& roi);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    NumberedText describeMisfit(const BaseImageAttribute& checked) const override;

private:
    boost::weak_ptr<const attr::InInputImg2dOffset> m_offset;
    boost::weak_ptr<const BaseImageAttribute> m_roi;
};

/// The same for volumes; an image of a single plan has another volume geometry, whatever the region.
class ORLIXIPLUTILITY_API GetRoi3dMinInputImageSize : public BaseCustomCheckedImageProperty
{
public:
    GetRoi3dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                              const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                              const boost::weak_ptr<const attr::InOutputImg3dSize>& size);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    image::VolumeGeometry getVolumeGeometry() const override;
    NumberedText describeMisfit(const BaseImageAttribute& checked) const override;

private:
    boost::weak_ptr<const attr::InInputImg3dOffset> m_offset;
    boost::weak_ptr<const attr::InOutputImg3dSize> m_size;
};
class ORLIXIPLUTILITY_API PutRoi3dMinInputImageSize : public BaseCustomCheckedImageProperty
{
public:
    PutRoi3dMinInputImageSize(const boost::weak_ptr<const BaseImageAttribute>& image,
                              const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                              const boost::weak_ptr<const BaseImageAttribute>& roi);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    image::VolumeGeometry getVolumeGeometry() const override;
    NumberedText describeMisfit(const BaseImageAttribute& checked) const override;

private:
    boost::weak_ptr<const attr::InInputImg3dOffset> m_offset;
    boost::weak_ptr<const BaseImageAttribute> m_roi;
};

/// The sizes that an attribute tells.
class ORLIXIPLUTILITY_API GetRoi2dOutputImageSize : public BaseCustomCheckedImageProperty
{
public:
    explicit GetRoi2dOutputImageSize(const boost::weak_ptr<const attr::InOutputImg2dSize>& size);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;

private:
    boost::weak_ptr<const attr::InOutputImg2dSize> m_size;
};
class ORLIXIPLUTILITY_API GetRoi3dOutputImageSize : public BaseCustomCheckedImageProperty
{
public:
    explicit GetRoi3dOutputImageSize(const boost::weak_ptr<const attr::InOutputImg3dSize>& size);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    image::VolumeGeometry getVolumeGeometry() const override;

private:
    boost::weak_ptr<const attr::InOutputImg3dSize> m_size;
};

using CheckedImagePropertyPtr = boost::shared_ptr<BaseCustomCheckedImageProperty>;

/// The property of an image that holds the region at `offset`, of the size that an attribute tells or that of image
/// `roi`. For customImageProperty on `image`; x and y are checked, in 3d also z. Takes shared or weak pointers and
/// keeps weak ones.
ORLIXIPLUTILITY_API CheckedImagePropertyPtr containsROI2d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                          const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                                                          const boost::weak_ptr<const attr::InOutputImg2dSize>& size);
ORLIXIPLUTILITY_API CheckedImagePropertyPtr containsROI2d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                          const boost::weak_ptr<const attr::InInputImg2dOffset>& offset,
                                                          const boost::weak_ptr<const BaseImageAttribute>& roi);
ORLIXIPLUTILITY_API CheckedImagePropertyPtr containsROI3d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                          const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                                                          const boost::weak_ptr<const attr::InOutputImg3dSize>& size);
ORLIXIPLUTILITY_API CheckedImagePropertyPtr containsROI3d(const boost::weak_ptr<const BaseImageAttribute>& image,
                                                          const boost::weak_ptr<const attr::InInputImg3dOffset>& offset,
                                                          const boost::weak_ptr<const BaseImageAttribute>& roi);

/// The property of an image of that size, checked on x and y, in 3d also on z.
ORLIXIPLUTILITY_API CheckedImagePropertyPtr matchROI2d(const boost::weak_ptr<const attr::InOutputImg2dSize>& size);
ORLIXIPLUTILITY_API CheckedImagePropertyPtr matchROI3d(const boost::weak_ptr<const attr::InOutputImg3dSize>& size);

/// The region of `property`, one that containsROI2d or containsROI3d made, lies within `image`, its end counted without
/// bounds. customImageProperty counts it in 64 bits and lets a region pass whose end comes round to a small number.
ORLIXIPLUTILITY_API processor::RulePtr regionWithin(const processor::AttributeRef<const BaseImageAttribute>& image,
                                                    const CheckedImagePropertyPtr& property);

} // namespace orlix::imaproc::util
