// The rules about regions as types; see RuleTypes.h. Each makes the rule of the property of the same name.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleUtils.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc::util {

namespace details {

// The size of a region: what an attribute tells, or that of the image that is put into it.
inline unsigned long sizeX(const image::BaseImage& roi)
{
    return roi.getSizeX();
}
inline unsigned long sizeY(const image::BaseImage& roi)
{
    return roi.getSizeY();
}
inline unsigned long sizeZ(const image::BaseImage& roi)
{
    return roi.getSizeZ();
}
template <class TSize>
unsigned long sizeX(const TSize& size)
{
    return size.X;
}
template <class TSize>
unsigned long sizeY(const TSize& size)
{
    return size.Y;
}
template <class TSize>
unsigned long sizeZ(const TSize& size)
{
    return size.Z;
}

/// Counted without bounds.
inline bool isWithin(unsigned long offset, unsigned long size, unsigned long whole)
{
    return offset <= whole && size <= whole - offset;
}

} // namespace details

/// The image of attribute `TImage` holds the region at `TOffset`. `TRegion` is the attribute of the region's size, or
/// that of the image that is put into it.
template <class TImage, class TOffset, class TRegion>
struct ContainsROI2d
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        const auto& image = processor::own<TImage>(attributes);
        return customImageProperty(
            image, containsROI2d(image, processor::own<TOffset>(attributes), processor::own<TRegion>(attributes)));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& image = *values.template get<TImage>();
        const attr::Img2dOffset& offset = *values.template get<TOffset>();
        const auto& region = *values.template get<TRegion>();
        return offset.X + details::sizeX(region) <= image.getSizeX() &&
               offset.Y + details::sizeY(region) <= image.getSizeY();
    }
};

/// The same for volumes; a single plan holds none.
template <class TImage, class TOffset, class TRegion>
struct ContainsROI3d
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        const auto& image = processor::own<TImage>(attributes);
        return customImageProperty(
            image, containsROI3d(image, processor::own<TOffset>(attributes), processor::own<TRegion>(attributes)));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& image = *values.template get<TImage>();
        const attr::Img3dOffset& offset = *values.template get<TOffset>();
        const auto& region = *values.template get<TRegion>();
        return offset.X + details::sizeX(region) <= image.getSizeX() &&
               offset.Y + details::sizeY(region) <= image.getSizeY() &&
               offset.Z + details::sizeZ(region) <= image.getSizeZ() && image.getGeometry().getVolumeGeometry().is3d();
    }
};

/// The same with ends counted without bounds, where ContainsROI2d lets one pass that comes round to a small number.
template <class TImage, class TOffset, class TRegion>
struct RegionWithin2d
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        const auto& image = processor::own<TImage>(attributes);
        return regionWithin(
            image, containsROI2d(image, processor::own<TOffset>(attributes), processor::own<TRegion>(attributes)));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& image = *values.template get<TImage>();
        const attr::Img2dOffset& offset = *values.template get<TOffset>();
        const auto& region = *values.template get<TRegion>();
        return details::isWithin(offset.X, details::sizeX(region), image.getSizeX()) &&
               details::isWithin(offset.Y, details::sizeY(region), image.getSizeY());
    }
};

/// The same of ContainsROI3d.
template <class TImage, class TOffset, class TRegion>
struct RegionWithin3d
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        const auto& image = processor::own<TImage>(attributes);
        return regionWithin(
            image, containsROI3d(image, processor::own<TOffset>(attributes), processor::own<TRegion>(attributes)));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& image = *values.template get<TImage>();
        const attr::Img3dOffset& offset = *values.template get<TOffset>();
        const auto& region = *values.template get<TRegion>();
        return details::isWithin(offset.X, details::sizeX(region), image.getSizeX()) &&
               details::isWithin(offset.Y, details::sizeY(region), image.getSizeY()) &&
               details::isWithin(offset.Z, details::sizeZ(region), image.getSizeZ()) &&
               image.getGeometry().getVolumeGeometry().is3d();
    }
};

/// The image has the size that attribute `TSize` tells.
template <class TImage, class TSize>
struct MatchROI2d
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return customImageProperty(processor::own<TImage>(attributes), matchROI2d(processor::own<TSize>(attributes)));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& image = *values.template get<TImage>();
        const attr::Img2dSize& size = *values.template get<TSize>();
        return image.getSizeX() == size.X && image.getSizeY() == size.Y;
    }
};

/// The same for volumes.
template <class TImage, class TSize>
struct MatchROI3d
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return customImageProperty(processor::own<TImage>(attributes), matchROI3d(processor::own<TSize>(attributes)));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& image = *values.template get<TImage>();
        const attr::Img3dSize& size = *values.template get<TSize>();
        return image.getSizeX() == size.X && image.getSizeY() == size.Y && image.getSizeZ() == size.Z &&
               image.getGeometry().getVolumeGeometry().is3d();
    }
};

} // namespace orlix::imaproc::util
