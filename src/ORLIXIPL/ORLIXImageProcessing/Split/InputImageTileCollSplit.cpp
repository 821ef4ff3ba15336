#include "ORLIXIPL/ORLIXImageProcessing/Split/InputImageTileCollSplit.h"

#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

#include <algorithm>

namespace orlix::imaproc {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eImageSplitMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(id, args...));
}

image::Border2dPolicy mirror(image::Tile2dKind)
{
    return image::mirorBorder2d();
}
image::Border3dPolicy mirror(image::Tile3dKind)
{
    return image::mirorBorder3d();
}

unsigned long nbLinesOf(const image::Tile2dCoords& tile)
{
    return tile.sizeY;
}
unsigned long nbLinesOf(const image::Tile3dCoords& tile)
{
    return std::min(tile.sizeY, 1UL << 10) * std::min(tile.sizeZ, 1UL << 10);
}

/// About what one tile costs in bytes: each of its lines lies somewhere else in memory, so it touches a cache line
/// more. Never 0, and held within bounds, so that the cost of many tiles doesn't wrap.
template <class TCoords>
unsigned long costOf(const TCoords& tile, unsigned long elementSize)
{
    constexpr unsigned long cacheLine = 64;
    const unsigned long lineBytes = std::min(tile.sizeX, 1UL << 14) * elementSize + cacheLine;
    return std::clamp(nbLinesOf(tile), 1UL, 1UL << 10) * lineBytes;
}

} // namespace

template <class TColl>
BaseImageTileCollSplit<TColl>::BaseImageTileCollSplit() : m_border(mirror(typename TColl::Kind()))
{}

template <class TColl>
ProcessingResult<bool> BaseImageTileCollSplit<TColl>::initBase(const ImageConstPtr& image, const CoordsColl& coords,
                                                               unsigned long group, unsigned long maxGroup)
{
    m_coords = coords;
    return initBase(image, Places(m_coords.data()), m_coords.size(), group, maxGroup);
}

template <class TColl>
ProcessingResult<bool> BaseImageTileCollSplit<TColl>::initBase(const ImageConstPtr& image, CoordsColl&& coords,
                                                               unsigned long group, unsigned long maxGroup)
{
    m_coords = std::move(coords);
    return initBase(image, Places(m_coords.data()), m_coords.size(), group, maxGroup);
}

template <class TColl>
ProcessingResult<bool> BaseImageTileCollSplit<TColl>::initBase(const ImageConstPtr& image, const Places& places,
                                                               unsigned long nbTiles, unsigned long group,
                                                               unsigned long maxGroup)
{
    if (!image) {
        return failure(eImageSplitMessage::eNullImage);
    }
    constexpr bool bVolume = TColl::Kind::g_bVolume;
    if (image->getSizeC() != 1 || image->getSizeT() != 1 || (!bVolume && image->getSizeZ() != 1)) {
        return failure(bVolume ? eImageSplitMessage::eSeveralVolumes : eImageSplitMessage::eSeveralPlans,
                       image->getGeometry().toString());
    }
    if (!image->getPixelLayout().first) {
        return failure(eImageSplitMessage::eNotOnHost, getAttributeName(), image->getGeometry().toString());
    }
    m_image = image;
    m_places = places;
    unsigned long cost = 0;
    if (nbTiles > 0 && image->getGeometry().getNbPixels() > 0) {
        typename TColl::Coords first;
        places.tell(0, 1, &first);
        cost = costOf(first, image::elementSize(image->getBufferType()));
    }
    m_demand = {true, nbTiles, cost, std::max(1UL, group), std::max(1UL, maxGroup)};
    return true;
}

template <class TColl>
ProcessingResult<bool> BaseImageTileCollSplit<TColl>::processAttribute(processor::BaseProcessor& lower,
                                                                       unsigned long start, unsigned long size,
                                                                       const core::BaseRequestOrigin&)
{
    const unsigned long nbTiles = m_demand.nbLines;
    if (start > nbTiles || size > nbTiles - start) {
        return failure(eImageSplitMessage::eRangeOutside, size, start, nbTiles);
    }
    if (m_coll && m_coll.use_count() == 1) {
        m_coll->init(*m_image, m_places, start, size, m_border);
    } else {
        m_coll = boost::make_shared<TColl>(*m_image, m_places, start, size, m_border);
    }
    return processAttribute(lower, m_coll);
}

template class BaseImageTileCollSplit<image::InputImageTile2dColl>;
template class BaseImageTileCollSplit<image::InputImageTile3dColl>;

} // namespace orlix::imaproc
