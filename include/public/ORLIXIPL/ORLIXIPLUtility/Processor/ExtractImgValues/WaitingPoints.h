// The points of a strip in the order in which its lines come.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ReusedVector.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/PointBlock.h"

namespace orlix::imaproc::util {

/// Lines of a strip count from its first, in a volume through all its plans.
struct StripLines
{
    static constexpr unsigned long s_none = ~0UL;

    unsigned long firstOfAxis; ///< the first line or plan of the strip
    unsigned long nbOfAxis;    ///< lines or plans
    unsigned long linesPerPlan;

    /// The line of a point in a plan; `s_none` outside the strip.
    unsigned long lineOf(const std::array<unsigned long, 2>& whole) const
    {
        return whole[1] - firstOfAxis < nbOfAxis ? whole[1] - firstOfAxis : s_none;
    }
    unsigned long lineOf(const std::array<unsigned long, 3>& whole) const
    {
        return whole[2] - firstOfAxis < nbOfAxis && whole[1] < linesPerPlan
                   ? (whole[2] - firstOfAxis) * linesPerPlan + whole[1]
                   : s_none;
    }
    unsigned long getNbLines() const { return nbOfAxis * linesPerPlan; }
};

/// A point that has no value yet.
template <class TKind>
struct WaitingPoint
{
    typename TKind::Place place;
    unsigned long line; ///< of the strip
    double* value;
};

/// True where `left` is served after `right`: by the low 32 bits of the whole coordinates, the last axis first, then by
/// x; a coordinate that is no number comes last.
template <class TKind>
bool isGreater(const WaitingPoint<TKind>& left, const WaitingPoint<TKind>& right)
{
    for (unsigned long axis = TKind::s_nbAxes - 1; axis > 0; --axis) {
        const auto first = static_cast<unsigned int>(cutCoordinate(left.place[axis]).whole);
        const auto second = static_cast<unsigned int>(cutCoordinate(right.place[axis]).whole);
        if (first != second) {
            return first > second;
        }
    }
    const double first = left.place[0];
    const double second = right.place[0];
    return first > second || (first != first && second == second);
}
inline bool coords2dGreater(const WaitingPoint<PlanPoints>& left, const WaitingPoint<PlanPoints>& right)
{
    return isGreater(left, right);
}
inline bool coords3dGreater(const WaitingPoint<VolumePoints>& left, const WaitingPoint<VolumePoints>& right)
{
    return isGreater(left, right);
}

/// Points in rising order; the next one to be served is at the front. Keeps memory from strip to strip.
template <class TKind>
class WaitingPoints
{
public:
    using Point = WaitingPoint<TKind>;

    void fill(const typename TKind::Pixels& pixels, const StripLines& lines);
    void clear();

    bool empty() const { return m_next == m_sorted.size(); }
    const Point& getNext() const { return m_sorted[m_next]; }
    void pop() { ++m_next; }

private:
    void gather(const typename TKind::Pixels& pixels, const StripLines& lines);
    void add(const typename TKind::Place& place, double& value, const StripLines& lines);
    void sortByLine(unsigned long nbLines);

    std::vector<Point> m_sorted;
    std::vector<Point> m_gathered;
    std::vector<unsigned long> m_ends; ///< of each line, where its points end
    bool m_bAllOnLines = true;
    unsigned long m_next = 0;
};

} // namespace orlix::imaproc::util
