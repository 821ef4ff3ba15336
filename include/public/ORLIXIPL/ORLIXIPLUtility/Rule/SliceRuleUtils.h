// What an image has to look like to be a slice of a volume.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceGeometry.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/CustomImageProperty.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc::util {

// For customImageProperty on the attribute of the slice: sizes x and y, and a single plan. Nothing is kept but weak
// references, so the answers follow the attributes as they are when asked. An attribute that is gone, was never there
// or holds no image: ORLIXIPLUtilityException, "Input attribute should not be null". The slice's number plays no part.

/// The slice of the volume that `volume` holds, perpendicular to `axis`.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomCheckedImageProperty>
matchSlice(const boost::weak_ptr<const BaseImageAttribute>& volume, const boost::weak_ptr<const attr::InAxis>& axis);

/// The same for a slice that is an input, whose attribute is `slice`.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomCheckedImageProperty>
matchSlice(const boost::weak_ptr<const BaseImageAttribute>& slice,
           const boost::weak_ptr<const BaseImageAttribute>& volume, const boost::weak_ptr<const attr::InAxis>& axis);

/// Image `TSlice` is a slice of image `TVolume`, perpendicular to the axis that attr::InAxis tells. See RuleTypes.h.
template <class TSlice, class TVolume>
struct IsSliceOf
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        const auto& slice = processor::own<TSlice>(attributes);
        const auto& volume = processor::own<TVolume>(attributes);
        const auto& axis = processor::own<attr::InAxis>(attributes);
        if constexpr (TSlice::g_bOutput) {
            return customImageProperty(slice, matchSlice(volume, axis));
        } else {
            return customImageProperty(slice, matchSlice(slice, volume, axis));
        }
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& slice = *values.template get<TSlice>();
        const image::BaseImage& volume = *values.template get<TVolume>();
        const eAxis axis = values.template get<attr::InAxis>();
        return slice.getSizeX() == sliceSizeX(volume, axis) && slice.getSizeY() == sliceSizeY(volume, axis) &&
               slice.getGeometry().getVolumeGeometry() == image::VolumeGeometry();
    }
};

} // namespace orlix::imaproc::util
