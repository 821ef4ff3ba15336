// What a level sets the splits of its images up with, one source for each way to cut.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Split/CudaSubImageSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYStrip2dSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYStrip2dWithKernelSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYSubStrip2dSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageZStrip3dSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageZStrip3dWithKernelSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageZSubStrip3dSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/InputImageTileCollSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/SubImageSplit.h"

namespace orlix::imaproc {

// A source refers to what it is made from and is used within the statement that makes it; the split holds the image.

/// The split counts, or doesn't, where elements are placed.
inline void setLocalized(processor::BaseDataSplit& split, bool bLocalized)
{
    bLocalized ? split.enableDataLocalization() : split.disableDataLocalization();
}

/// What a split into sub-images is set up with.
template <class TImagePtr>
struct SubImageSource
{
    const TImagePtr& image;
    eSubImageSplitType type;
    eVolumeParsingType volumes;
    bool bLocalized;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        setLocalized(split, bLocalized);
        return split.initBase(type, volumes, eColorParsingType::eChannelByChannel, eTemporalParsingType::eFrameByFrame,
                              image);
    }
};
/// Every plan of the image an element of its own.
template <class TImagePtr>
SubImageSource<TImagePtr> planByPlan(const TImagePtr& image, bool bLocalized = true)
{
    return {image, eSubImageSplitType::eSubImagePlan2d, eVolumeParsingType::ePlanByPlan, bLocalized};
}
/// Every volume of the image an element of its own.
template <class TImagePtr>
SubImageSource<TImagePtr> volumeByVolume(const TImagePtr& image, bool bLocalized = true)
{
    return {image, eSubImageSplitType::eSubImageVolume3d, eVolumeParsingType::eWholeVolume, bLocalized};
}

/// What a split that hands an image on a device over is set up with.
template <class TImagePtr>
struct DeviceImageSource
{
    const TImagePtr& image;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return split.initBase(eSubImageSplitType::eSubImageOnDevice, image);
    }
};
/// The image on its device as it is, one element.
template <class TImagePtr>
DeviceImageSource<TImagePtr> wholeOnDevice(const TImagePtr& image)
{
    return {image};
}

/// What a split into strips is set up with.
template <class TImagePtr>
struct StripSource
{
    const TImagePtr& image;
    bool bLocalized;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        setLocalized(split, bLocalized);
        return split.initBase(image, image::eStripAllocationType::eStripAllocationDefault,
                              image::eStripParsingDirection::eStripParsingForward,
                              image::eStripParsingDirection::eStripParsingForward);
    }
};
/// The plan, or volume, in strips.
template <class TImagePtr>
StripSource<TImagePtr> stripByStrip(const TImagePtr& image, bool bLocalized = true)
{
    return {image, bLocalized};
}

/// What a split of a region into strips is set up with.
template <class TImagePtr>
struct SubStripSource
{
    const TImagePtr& image;
    unsigned long start;
    unsigned long size;
    bool bLocalized;
    unsigned long lineBytes;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        setLocalized(split, bLocalized);
        return split.initBase(image, image::eStripAllocationType::eStripAllocationDefault, start, size, lineBytes);
    }
};
/// Lines [start, start + size) of the plan, or such plans of the volume, in strips. `lineBytes` are those that are
/// touched of each, if not all are.
template <class TImagePtr>
SubStripSource<TImagePtr> subStripByStrip(const TImagePtr& image, unsigned long start, unsigned long size,
                                          bool bLocalized = true, unsigned long lineBytes = ~0UL)
{
    return {image, start, size, bLocalized, lineBytes};
}

/// What a split into strips with margins is set up with.
template <class TImagePtr>
struct MarginStripSource
{
    const TImagePtr& image;
    image::Margin within;
    image::Margin across;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return split.initBase(image, within.start, within.end, across.start, across.end,
                              image::eStripAllocationType::eStripAllocationDefault,
                              image::eStripParsingDirection::eStripParsingForward);
    }
};
/// The plan in strips with margins `within` its lines and `across` them, or the volume in such with margins within its
/// plans and across them.
template <class TImagePtr>
MarginStripSource<TImagePtr> marginStripByStrip(const TImagePtr& image, const image::Margin& within,
                                                const image::Margin& across)
{
    return {image, within, across};
}

/// What a split into groups of tiles is set up with.
template <class TCoords, class TBorderPolicy>
struct TileSource
{
    const ImageConstPtr& image;
    const std::vector<TCoords>& coords;
    TBorderPolicy border;
    unsigned long group;
    unsigned long maxGroup;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        split.setBorderPolicy(border);
        return split.initBase(image, coords, group, maxGroup);
    }
};
/// The tiles at `coords` in groups of a multiple of `group` and no more than `maxGroup`.
template <class TCoords, class TBorderPolicy>
TileSource<TCoords, TBorderPolicy> tilesByGroup(const ImageConstPtr& image, const std::vector<TCoords>& coords,
                                                const TBorderPolicy& border, unsigned long group,
                                                unsigned long maxGroup)
{
    return {image, coords, border, group, maxGroup};
}

/// What a split into groups of tiles is set up with that need no array.
template <class TCoords, class TBorderPolicy>
struct TilePlacesSource
{
    const ImageConstPtr& image;
    image::TilePlaces<TCoords> places;
    unsigned long nbTiles;
    TBorderPolicy border;
    unsigned long group;
    unsigned long maxGroup;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        split.setBorderPolicy(border);
        return split.initBase(image, places, nbTiles, group, maxGroup);
    }
};
/// Tiles [0, nbTiles) of `places`, whose source has to outlive the run, in such groups.
template <class TCoords, class TBorderPolicy>
TilePlacesSource<TCoords, TBorderPolicy>
tilesByGroup(const ImageConstPtr& image, const image::TilePlaces<TCoords>& places, unsigned long nbTiles,
             const TBorderPolicy& border, unsigned long group, unsigned long maxGroup)
{
    return {image, places, nbTiles, border, group, maxGroup};
}

} // namespace orlix::imaproc
