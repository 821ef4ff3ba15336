#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileColl.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"

namespace orlix::image {

using tools::eORLIXBaseImageToolsMessage;

template <class TKind>
const typename TKind::Tile& InputImageTileColl<TKind>::getTile(unsigned long index)
{
    if (index >= m_nbTiles) {
        raise<eORLIXBaseImageToolsMessage>(ORLIX_HERE, eORLIXBaseImageToolsMessage::eNoSuchTile, index, m_nbTiles);
    }
    Coords place;
    tellPlaces(index, 1, &place);
    return getTileAt(place);
}

template <class TKind>
const typename TKind::Tile& InputImageTileColl<TKind>::getTileAt(const Coords& place)
{
    ProcessingResult<bool> result;
    if constexpr (TKind::g_bVolume) {
        result = ImageTileExtractor::extractInputTile3d(*m_image, place, m_policy, m_tile);
    } else {
        result = ImageTileExtractor::extractInputTile2d(*m_image, place, m_policy, m_tile);
    }
    if (!result) {
        raiseFailure<eORLIXBaseImageToolsMessage>(ORLIX_HERE, eORLIXBaseImageToolsMessage::eTileNotTaken,
                                                  result.getMessage());
    }
    return m_tile;
}

template class InputImageTileColl<Tile2dKind>;
template class InputImageTileColl<Tile3dKind>;

} // namespace orlix::image
