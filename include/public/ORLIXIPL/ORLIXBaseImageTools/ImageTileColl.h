// Tiles of an image that are taken one after the other.
#pragma once

#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileExtractor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/TilePlaces.h"

namespace orlix::image {

/// What a collection of tiles needs to know of their kind.
struct Tile2dKind
{
    using Tile = InputImageTile2d;
    using Coords = Tile2dCoords;
    using BorderPolicy = Border2dPolicy;
    static constexpr bool g_bVolume = false;
};
struct Tile3dKind
{
    using Tile = InputImageTile3d;
    using Coords = Tile3dCoords;
    using BorderPolicy = Border3dPolicy;
    static constexpr bool g_bVolume = true;
};

/// A view of some tiles: nothing is taken from the image before it is asked for, by the thread that asks. Lives no
/// longer than the image and the coordinates. One thread at a time.
template <class TKind>
class InputImageTileColl
{
public:
    using Kind = TKind;
    using Coords = typename TKind::Coords;
    using BorderPolicy = typename TKind::BorderPolicy;

    using Places = TilePlaces<Coords>;

    /// The `nbTiles` tiles at `coords` and behind.
    InputImageTileColl(const BaseImage& image, const Coords* coords, unsigned long nbTiles, const BorderPolicy& policy)
        : InputImageTileColl(image, Places(coords), 0, nbTiles, policy)
    {}
    /// Tiles [first, first + nbTiles) of `places`.
    InputImageTileColl(const BaseImage& image, const Places& places, unsigned long first, unsigned long nbTiles,
                       const BorderPolicy& policy)
        : m_image(&image), m_places(places), m_first(first), m_nbTiles(nbTiles), m_policy(policy)
    {}
    /// Moves on to other tiles, and keeps the memory.
    void init(const BaseImage& image, const Places& places, unsigned long first, unsigned long nbTiles,
              const BorderPolicy& policy)
    {
        m_image = &image;
        m_places = places;
        m_first = first;
        m_nbTiles = nbTiles;
        m_policy = policy;
    }

    unsigned long getNbTiles() const { return m_nbTiles; }
    eImageBufferType getImageBufferType() const { return m_image->getBufferType(); }

    /// For those who read rows where they lie: the image, and the places of tiles [first, first + count) of these,
    /// which have to be among them.
    const BaseImage& getImage() const { return *m_image; }
    void tellPlaces(unsigned long first, unsigned long count, Coords* places) const
    {
        m_places.tell(m_first + first, count, places);
    }

    /// Tile `index`, until the next one is asked for. Throws ORLIXBaseImageToolsException for an index past the end and
    /// for a tile that can't be taken.
    const typename TKind::Tile& getTile(unsigned long index);
    /// The same for a tile at a place of its own.
    const typename TKind::Tile& getTileAt(const Coords& place);

private:
    const BaseImage* m_image;
    Places m_places;
    unsigned long m_first;
    unsigned long m_nbTiles;
    BorderPolicy m_policy;
    typename TKind::Tile m_tile;
};

extern template class ORLIXBASEIMAGETOOLS_API InputImageTileColl<Tile2dKind>;
extern template class ORLIXBASEIMAGETOOLS_API InputImageTileColl<Tile3dKind>;

using InputImageTile2dColl = InputImageTileColl<Tile2dKind>;
using InputImageTile3dColl = InputImageTileColl<Tile3dKind>;

} // namespace orlix::image
