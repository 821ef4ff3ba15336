#include "ORLIXIPL/ORLIXIPLAttributes/PlanIndexedCoordsAttribute.h"

#include "ORLIX/ORLIXBaseProcessing/DataItemTable.h"

#include <algorithm>

namespace orlix::imaproc::attr::details {

namespace {

/// Plans of a table at most: a slip in a column of plans must not ask for memory without end.
constexpr unsigned long g_mostPlans = 1UL << 20;

PlanIndex planOf(const Placed2d& row)
{
    return {row.Z, row.C, row.T};
}
PlanIndex planOf(const Placed3d& row)
{
    return {0, row.C, row.T};
}

void addPoint(const Placed2d& row, Coords2dColl& points)
{
    Coords2d& point = points.access<Coords2dColl::Coll>().emplace_back();
    point.access<Coords2d::X>() = row.X;
    point.access<Coords2d::Y>() = row.Y;
}
void addPoint(const Placed3d& row, Coords3dColl& points)
{
    Coords3d& point = points.access<Coords3dColl::Coll>().emplace_back();
    point.access<Coords3d::X>() = row.X;
    point.access<Coords3d::Y>() = row.Y;
    point.access<Coords3d::Z>() = row.Z;
}

Placed2d rowOf(const Coords2d& point, const PlanIndex& plan)
{
    return {point.get<Coords2d::X>(), point.get<Coords2d::Y>(), plan.z, plan.c, plan.t};
}
Placed3d rowOf(const Coords3d& point, const PlanIndex& plan)
{
    return {point.get<Coords3d::X>(), point.get<Coords3d::Y>(), point.get<Coords3d::Z>(), plan.c, plan.t};
}

/// May there be plans from 0 to this one on each axis?
bool canHold(const PlanIndex& last)
{
    const auto isBelow = [](unsigned long index) { return index < g_mostPlans; };
    return isBelow(last.z) && isBelow(last.c) && isBelow(last.t) &&
           (last.z + 1) * (last.c + 1) <= g_mostPlans / (last.t + 1);
}

template <class TPlaced, class TColl>
std::string read(const std::string& text, PlanIndexedColl<TColl>& points)
{
    processor::CsvReader reader =
        text.starts_with('@') ? processor::CsvReader::ofFile(text.substr(1)) : processor::CsvReader::ofText(text);
    std::vector<TPlaced> rows;
    if (std::string flaw = processor::details::readTable(reader, rows); !flaw.empty()) {
        return flaw;
    }
    PlanIndex last;
    for (const TPlaced& row : rows) {
        const PlanIndex plan = planOf(row);
        last = {std::max(last.z, plan.z), std::max(last.c, plan.c), std::max(last.t, plan.t)};
    }
    if (!canHold(last)) {
        return "plans go up to z " + numberText(last.z) + ", c " + numberText(last.c) + ", t " + numberText(last.t) +
               ": give no more than " + numberText(g_mostPlans) + " plans";
    }
    points.initPlanIndexed(last.z + 1, last.c + 1, last.t + 1);
    for (const TPlaced& row : rows) {
        addPoint(row, *points.find(planOf(row)));
    }
    return "";
}

template <class TPlaced, class TColl>
std::optional<std::string> write(const PlanIndexedColl<TColl>& points)
{
    std::vector<TPlaced> rows;
    for (unsigned long i = 0; i < points.size(); ++i) {
        const auto entry = points.getItem(i);
        if (!entry || entry->template get<typename TColl::Coll>().empty()) {
            return std::nullopt;
        }
        for (const auto& point : entry->template get<typename TColl::Coll>()) {
            rows.push_back(rowOf(point, points.getPlanIndex(i)));
        }
    }
    return processor::details::tableText(rows);
}

} // namespace

std::string readPlacedPoints(const std::string& text, PlanIndexedCoords2dColl& points)
{
    return read<Placed2d>(text, points);
}
std::string readPlacedPoints(const std::string& text, PlanIndexedCoords3dColl& points)
{
    return read<Placed3d>(text, points);
}
std::optional<std::string> placedPointsText(const PlanIndexedCoords2dColl& points)
{
    return write<Placed2d>(points);
}
std::optional<std::string> placedPointsText(const PlanIndexedCoords3dColl& points)
{
    return write<Placed3d>(points);
}

} // namespace orlix::imaproc::attr::details
