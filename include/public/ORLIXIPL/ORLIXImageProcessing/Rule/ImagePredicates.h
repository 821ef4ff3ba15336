// What rules about images and strips demand, as plain questions: for a level that has its attributes at hand and needs
// no text. The rules decide by these very predicates.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImage/ImageZStrip3d.h"

#include <concepts>

namespace orlix::imaproc {

/// Which sizes a size rule compares.
struct eMatchImageSizeType
{
    enum domain { eAllSizes = 0, eAllButTime = 6, eColorAndTime = 11, eVolumeColorAndTime = 12 };
    ORLIX_ENUMERATION(eMatchImageSizeType, eAllSizes);
};

/// Same sizes, whatever the element types.
inline bool isSameSize(const image::BaseImage& left, const image::BaseImage& right,
                       const eMatchImageSizeType& type = eMatchImageSizeType::eAllSizes)
{
    const bool bTime = type != eMatchImageSizeType::eAllButTime;
    const bool bVolume = type != eMatchImageSizeType::eColorAndTime;
    const bool bPlan = bVolume && type != eMatchImageSizeType::eVolumeColorAndTime;
    return (!bPlan || (left.getSizeX() == right.getSizeX() && left.getSizeY() == right.getSizeY())) &&
           (!bVolume || left.getSizeZ() == right.getSizeZ()) && left.getSizeC() == right.getSizeC() &&
           (!bTime || left.getSizeT() == right.getSizeT());
}
/// Same element type in every time step.
inline bool isSameBufferType(const image::BaseImage& left, const image::BaseImage& right)
{
    return left.getGeometry().hasSameBufferTypes(right.getGeometry());
}
inline bool isSameSizeAndType(const image::BaseImage& left, const image::BaseImage& right)
{
    return isSameSize(left, right) && isSameBufferType(left, right);
}
/// Every time step is of this type.
inline bool isOfBufferType(const image::BaseImage& image, const image::eImageBufferType& type)
{
    bool bSame = image.getBufferType() == type;
    for (unsigned long t = 1; t < image.getSizeT() && !image.getGeometry().hasUniformBufferType(); ++t) {
        bSame = bSame && image.getBufferType(t) == type;
    }
    return bSame;
}
/// The value lies in the type's range; NaN and infinities never do.
inline bool isInRange(const image::eImageBufferType& type, double value)
{
    return value >= image::getMinValue(type) && value <= image::getMaxValue(type);
}
/// In the range of every time step's type.
inline bool isInRange(const image::BaseImage& image, double value)
{
    bool bWithin = isInRange(image.getBufferType(), value);
    for (unsigned long t = 1; t < image.getSizeT() && !image.getGeometry().hasUniformBufferType(); ++t) {
        bWithin = bWithin && isInRange(image.getBufferType(t), value);
    }
    return bWithin;
}

/// Both are of plans, or both of volumes, of whatever sizes.
inline bool isSameVolumeGeometryType(const image::BaseImage& left, const image::BaseImage& right)
{
    return left.getGeometry().getVolumeGeometry().is3d() == right.getGeometry().getVolumeGeometry().is3d();
}
/// Both have one channel, or both another number of them.
inline bool isSameColorGeometryType(const image::BaseImage& left, const image::BaseImage& right)
{
    return (left.getSizeC() == 1) == (right.getSizeC() == 1);
}

/// Same line length and number of lines, from whatever line. Margins don't count.
inline bool isSameSize(const image::BaseImageYStrip2d& left, const image::BaseImageYStrip2d& right)
{
    return left.getSizeX() == right.getSizeX() && left.getStripSizeY() == right.getStripSizeY();
}
/// Same size of plans and number of plans, from whatever plan. Margins don't count.
inline bool isSameSize(const image::BaseImageZStrip3d& left, const image::BaseImageZStrip3d& right)
{
    return left.getSizeX() == right.getSizeX() && left.getSizeY() == right.getSizeY() &&
           left.getStripSizeZ() == right.getStripSizeZ();
}

/// A strip, which has one element type.
template <class TStrip>
concept ImageStrip =
    std::derived_from<TStrip, image::BaseImageYStrip2d> || std::derived_from<TStrip, image::BaseImageZStrip3d>;

template <ImageStrip TLeft, ImageStrip TRight>
bool isSameBufferType(const TLeft& left, const TRight& right)
{
    return left.getImageBufferType() == right.getImageBufferType();
}
template <ImageStrip TLeft, ImageStrip TRight>
bool isSameSizeAndType(const TLeft& left, const TRight& right)
{
    return isSameSize(left, right) && isSameBufferType(left, right);
}
template <ImageStrip TStrip>
bool isOfBufferType(const TStrip& strip, const image::eImageBufferType& type)
{
    return strip.getImageBufferType() == type;
}
template <ImageStrip TStrip>
bool isInRange(const TStrip& strip, double value)
{
    return isInRange(strip.getImageBufferType(), value);
}

} // namespace orlix::imaproc
