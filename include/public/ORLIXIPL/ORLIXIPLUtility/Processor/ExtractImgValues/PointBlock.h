// Pixels that need no object each: their coordinates and values lie side by side with the level above.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/DynamicByRangeDataSplit.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/CutCoordinate.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/PointKinds.h"

#include <boost/make_shared.hpp>

#include <span>

namespace orlix::imaproc::util {

/// What the levels of the family hand to one another in the place of a collection of pixels, whose `Coll` stays empty:
/// a shared object a point would cost more than its value. Refers to the points and to the room for their values, which
/// have to outlive it. Different parts of one block may be worked on at the same time.
template <class TKind>
class PointBlock final : public TKind::Pixels
{
public:
    using Coords = typename TKind::Coords;

    /// All of them, in order.
    PointBlock(const Coords* points, double* values, unsigned long nbPoints)
        : m_points(points), m_values(values), m_nbPoints(nbPoints)
    {}
    /// Those of `whole` that `numbers` tell.
    PointBlock(const PointBlock& whole, std::span<const unsigned long> numbers)
        : m_points(whole.m_points), m_values(whole.m_values), m_nbPoints(numbers.size()),
          m_numbers(numbers.begin(), numbers.end())
    {}

    unsigned long getNbPoints() const { return m_nbPoints; }
    typename TKind::Place getPlace(unsigned long i) const { return TKind::placeOf(m_points[numberOf(i)]); }
    double& accessValue(unsigned long i) const { return m_values[numberOf(i)]; }

    /// Of a block of all points.
    const Coords* getPoints() const { return m_points; }
    double* accessValues() const { return m_values; }

private:
    unsigned long numberOf(unsigned long i) const { return m_numbers.empty() ? i : m_numbers[i]; }

    const Coords* m_points;
    double* m_values;
    unsigned long m_nbPoints;
    std::vector<unsigned long> m_numbers; ///< empty where all are in order
};

/// Points [begin, begin + count) of a block. Throws ORLIXIPLUtilityException for more than it has.
template <class TKind>
boost::shared_ptr<PointBlock<TKind>> extractTiledPoints(const PointBlock<TKind>& points, unsigned long begin,
                                                        unsigned long count)
{
    const unsigned long nbPoints = points.getNbPoints();
    if (begin > nbPoints || count > nbPoints - begin) {
        raise<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eInvalidElementsRange, begin, begin + count, nbPoints);
    }
    return boost::make_shared<PointBlock<TKind>>(points.getPoints() + begin, points.accessValues() + begin, count);
}
inline boost::shared_ptr<attr::Pixels2d> extractTiledPixelValues(const PointBlock<PlanPoints>& points,
                                                                 unsigned long begin, unsigned long count)
{
    return extractTiledPoints(points, begin, count);
}
inline boost::shared_ptr<attr::Voxels3d> extractTiledVoxelValues(const PointBlock<VolumePoints>& points,
                                                                 unsigned long begin, unsigned long count)
{
    return extractTiledPoints(points, begin, count);
}

/// How a split by range reaches the points of a block: as the collection of the split, PointBlock says that its data is
/// one.
template <class TKind>
struct PointsOfRange
{
    using Pixels = typename TKind::Pixels;

    static const PointBlock<TKind>& blockOf(const Pixels& data) { return static_cast<const PointBlock<TKind>&>(data); }
    static unsigned long getNbItems(const Pixels& data) { return blockOf(data).getNbPoints(); }
    static bool isNull(const Pixels&, unsigned long) { return false; }
    static unsigned long getLine(const Pixels& data, unsigned long item)
    {
        return cutCoordinate(blockOf(data).getPlace(item)[TKind::s_stripAxis]).whole;
    }
    static boost::shared_ptr<Pixels> makePart(const Pixels& data, std::span<const unsigned long> items)
    {
        return boost::make_shared<PointBlock<TKind>>(blockOf(data), items);
    }
};

} // namespace orlix::imaproc::util

namespace orlix::processor {

template <>
struct RangeDataItems<imaproc::attr::Pixels2d, imaproc::util::PointBlock<imaproc::util::PlanPoints>,
                      imaproc::attr::Pixel2d::Y> : imaproc::util::PointsOfRange<imaproc::util::PlanPoints>
{};
template <>
struct RangeDataItems<imaproc::attr::Voxels3d, imaproc::util::PointBlock<imaproc::util::VolumePoints>,
                      imaproc::attr::Voxel3d::Z> : imaproc::util::PointsOfRange<imaproc::util::VolumePoints>
{};

} // namespace orlix::processor
