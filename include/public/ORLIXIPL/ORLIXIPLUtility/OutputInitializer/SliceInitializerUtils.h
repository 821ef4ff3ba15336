// What a missing output looks like that is a slice of a volume.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceGeometry.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"

namespace orlix::imaproc::util {

/// For customOutput: the slice of the volume that `volume` holds, perpendicular to `axis`, with the volume's element
/// types, channels and time steps, and the calibration of the slice. Nothing is kept but weak references. An attribute
/// that is gone, was never there or holds no image: ORLIXIPLUtilityException, "Input attribute should not be null".
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputSlice(const boost::weak_ptr<const BaseImageAttribute>& volume, const boost::weak_ptr<const attr::InAxis>& axis);

/// The same as the info of a CustomOutput.
template <class TVolume>
struct SliceInfo
{
    template <class TAttributes>
    static boost::shared_ptr<const BaseCustomImageInfo> make(const TAttributes& attributes)
    {
        return outputSlice(processor::own<TVolume>(attributes), processor::own<attr::InAxis>(attributes));
    }
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        const image::BaseImage* const volume = processor::pointerTo(values.template get<TVolume>());
        return volume == nullptr ? ImagePtr() : createSliceImage(*volume, values.template get<attr::InAxis>());
    }
};

} // namespace orlix::imaproc::util
