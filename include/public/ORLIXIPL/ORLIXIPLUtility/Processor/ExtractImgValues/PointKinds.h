// What values at points of plans and of volumes differ in.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/PointAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageSplitSources.h"

#include <array>

namespace orlix::imaproc::util {

/// Points of a plan.
struct PlanPoints
{
    static constexpr unsigned long s_nbAxes = 2;
    using Place = std::array<double, s_nbAxes>;

    using InSubImage = attr::InSubImg2d;
    using InCoordsColl = attr::InCoords2dColl;
    using InStrip = attr::InKnlYStrip2d;
    using InTiles = attr::InTile2dColl;
    using InOutPixels = attr::InOutPixels2d;
    using CoordsColl = attr::Coords2dColl;
    using Coords = attr::Coords2d;
    using Pixels = attr::Pixels2d;
    using Pixel = attr::Pixel2d;
    using StripKey = attr::Pixel2d::Y; ///< the axis on which strips follow one another
    static constexpr unsigned long s_stripAxis = 1;

    using Tiles = image::InputImageTile2dColl;
    template <class TLower>
    using TileSplit = InputImageTile2dCollSplit<TLower, InTiles>;
    template <class TLower>
    using StripSplit = ImageYStrip2dWithKernelSplit<TLower, const image::BaseImage, InStrip>;

    static image::Border2dPolicy getBorder() { return image::mirorBorder2d(); }

    /// Of coordinates, or of a pixel.
    template <class TPoint>
    static Place placeOf(const TPoint& point)
    {
        return {point.template get<attr::Coords2d::X>(), point.template get<attr::Coords2d::Y>()};
    }
    static image::Tile2dCoords tileAt(const std::array<unsigned long, 2>& origin, unsigned long side)
    {
        return {origin[0], origin[1], side, side};
    }
    static std::array<unsigned long, 2> originOf(const image::Tile2dCoords& tile)
    {
        return {tile.originX, tile.originY};
    }
};

/// Points of a volume.
struct VolumePoints
{
    static constexpr unsigned long s_nbAxes = 3;
    using Place = std::array<double, s_nbAxes>;

    using InSubImage = attr::InSubImg3d;
    using InCoordsColl = attr::InCoords3dColl;
    using InStrip = attr::InKnlZStrip3d;
    using InTiles = attr::InTile3dColl;
    using InOutPixels = attr::InOutVoxels3d;
    using CoordsColl = attr::Coords3dColl;
    using Coords = attr::Coords3d;
    using Pixels = attr::Voxels3d;
    using Pixel = attr::Voxel3d;
    using StripKey = attr::Voxel3d::Z;
    static constexpr unsigned long s_stripAxis = 2;

    using Tiles = image::InputImageTile3dColl;
    template <class TLower>
    using TileSplit = InputImageTile3dCollSplit<TLower, InTiles>;
    template <class TLower>
    using StripSplit = ImageZStrip3dWithKernelSplit<TLower, const image::BaseImage, InStrip>;

    static image::Border3dPolicy getBorder() { return image::mirorBorder3d(); }

    template <class TPoint>
    static Place placeOf(const TPoint& point)
    {
        return {point.template get<attr::Coords3d::X>(), point.template get<attr::Coords3d::Y>(),
                point.template get<attr::Coords3d::Z>()};
    }
    static image::Tile3dCoords tileAt(const std::array<unsigned long, 3>& origin, unsigned long side)
    {
        return {origin[0], origin[1], origin[2], side, side, side};
    }
    static std::array<unsigned long, 3> originOf(const image::Tile3dCoords& tile)
    {
        return {tile.originX, tile.originY, tile.originZ};
    }
};

} // namespace orlix::imaproc::util
