// The values of points from the tiles around them, some at a time; included by the kernels of tiles only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ImageRows.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/PointBlock.h"

#include <algorithm>

namespace orlix::imaproc::util {

/// What is known of a tile before it is read.
template <class TKind>
struct TileToRead
{
    std::array<unsigned long, TKind::s_nbAxes> origin;
    std::array<double, TKind::s_nbAxes> fraction; ///< of its point
    const std::byte* box;                         ///< where it lies in the image; null where it goes beyond
};

/// A block as TileReader takes points. Its tiles follow from the points, so they aren't asked for.
template <class TKind>
struct BlockPixels
{
    const PointBlock<TKind>& block;

    unsigned long getNbPoints() const { return block.getNbPoints(); }
    double& accessValue(unsigned long i) const { return block.accessValue(i); }
    void findTiles(const typename TKind::Tiles&, unsigned long start, unsigned long first, unsigned long count,
                   TileToRead<TKind>* found) const
    {
        for (unsigned long i = 0; i < count; ++i) {
            const CutPlace<TKind::s_nbAxes> cut(block.getPlace(first + i));
            for (unsigned long axis = 0; axis < TKind::s_nbAxes; ++axis) {
                found[i].origin[axis] = cut.whole[axis] - start;
                found[i].fraction[axis] = cut.fraction[axis];
            }
        }
    }
};

/// Pixels that are objects, in the same way. None of them is null.
template <class TKind>
struct SharedPixels
{
    const std::vector<boost::shared_ptr<typename TKind::Pixel>>& pixels;

    unsigned long getNbPoints() const { return pixels.size(); }
    double& accessValue(unsigned long i) const { return pixels[i]->template access<typename TKind::Pixel::Value>(); }
    void findTiles(const typename TKind::Tiles& tiles, unsigned long, unsigned long first, unsigned long count,
                   TileToRead<TKind>* found) const
    {
        for (unsigned long i = 0; i < count; ++i) {
            typename TKind::Tiles::Coords place;
            tiles.tellPlaces(first + i, 1, &place);
            found[i].origin = TKind::originOf(place);
            found[i].fraction = CutPlace<TKind::s_nbAxes>(TKind::placeOf(*pixels[first + i])).fraction;
        }
    }
};

/// Reads pixels of type `T` by policy `TInterpolation`.
template <class TKind, class T, class TInterpolation>
class TileReader
{
public:
    explicit TileReader(typename TKind::Tiles& tiles) : m_tiles(tiles), m_rows(tiles.getImage()) {}

    /// All of them: while some are read, the rows of the next ones are on their way from memory.
    template <class TPoints>
    void read(const TPoints& points)
    {
        constexpr unsigned long nbAtOnce = 32;
        TileToRead<TKind> tiles[2][nbAtOnce];
        TileToRead<TKind>* now = tiles[0];
        TileToRead<TKind>* next = tiles[1];
        const unsigned long nbPoints = points.getNbPoints();
        unsigned long nbNext = find(points, 0, std::min(nbAtOnce, nbPoints), next);
        for (unsigned long first = 0; first < nbPoints; first += nbAtOnce) {
            std::swap(now, next);
            const unsigned long nbNow = nbNext;
            nbNext = find(points, first + nbNow, std::min(nbAtOnce, nbPoints - first - nbNow), next);
            for (unsigned long i = 0; i < nbNow; ++i) {
                points.accessValue(first + i) = valueOf(now[i]);
            }
        }
    }

private:
    static constexpr unsigned long s_side = TInterpolation::s_start + 1 + TInterpolation::s_end;

    template <class TPoints>
    unsigned long find(const TPoints& points, unsigned long first, unsigned long count, TileToRead<TKind>* found) const
    {
        points.findTiles(m_tiles, TInterpolation::s_start, first, count, found);
        for (unsigned long i = 0; i < count; ++i) {
            const std::byte* const box = m_rows.find(found[i].origin, s_side);
            found[i].box = box;
            if (box != nullptr) {
                TInterpolation::forEachRow(found[i].fraction,
                                           [&](unsigned long column, unsigned long line, unsigned long plan) {
                                               __builtin_prefetch(m_rows.at(box, line, plan) + column * sizeof(T));
                                           });
            }
        }
        return count;
    }
    double valueOf(const TileToRead<TKind>& found) const
    {
        if (found.box == nullptr) {
            return valueBeyond(found);
        }
        return TInterpolation::template of<T>(
            [&](unsigned long line, unsigned long plan) {
                return reinterpret_cast<const T*>(m_rows.at(found.box, line, plan));
            },
            found.fraction);
    }
    __attribute__((noinline)) double valueBeyond(const TileToRead<TKind>& found) const
    {
        const auto& tile = m_tiles.getTileAt(TKind::tileAt(found.origin, s_side));
        return TInterpolation::template of<T>(
            [&tile](unsigned long line, [[maybe_unused]] unsigned long plan) {
                if constexpr (TKind::s_nbAxes == 3) {
                    return static_cast<const T*>(tile.accessBuffer(line, plan));
                } else {
                    return static_cast<const T*>(tile.accessBuffer(line));
                }
            },
            found.fraction);
    }

    typename TKind::Tiles& m_tiles;
    ImageRows m_rows;
};

} // namespace orlix::imaproc::util
