#include "TablePoints.h"

#include "CommandMessages.h"
#include "PlainText.h"

#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::cli {

namespace {

using imaproc::attr::Coords2d;
using imaproc::attr::Coords2dColl;
using imaproc::attr::Coords3d;
using imaproc::attr::Coords3dColl;
using eColumn = PointTable::eColumn;

constexpr unsigned long at(eColumn column)
{
    return static_cast<unsigned long>(column);
}

std::string textOf(const std::array<double, 3>& place, bool bVolume)
{
    std::string text = "(" + shortest(place[0]) + ", " + shortest(place[1]);
    return bVolume ? text + ", " + shortest(place[2]) + ")" : text + ")";
}

} // namespace

TablePoints::TablePoints(const PointTable& table, const std::string& imageFile, const image::BaseImage& image,
                         const PointOptions& options)
    : m_table(table), m_imageFile(imageFile), m_image(image), m_options(options), m_bVolume(table.has(eColumn::z)),
      m_points2d(boost::make_shared<imaproc::attr::PlanIndexedCoords2dColl>()),
      m_points3d(boost::make_shared<imaproc::attr::PlanIndexedCoords3dColl>())
{
    checkPlans();
    if (m_bVolume) {
        m_points3d->initPlanIndexed(1, image.getSizeC(), image.getSizeT());
    } else {
        m_points2d->initPlanIndexed(image.getSizeZ(), image.getSizeC(), image.getSizeT());
    }
    m_places.reserve(table.getNbRows());
    m_plans.reserve(table.getNbRows());
    for (unsigned long row = 0; row < table.getNbRows(); ++row) {
        const std::array<std::string, 5> fields = table.readFields(row);
        const std::array<double, 3> place = readPlace(fields, row);
        const PlanIndex plan = readPlan(fields, row);
        if (!m_options.bMirror) {
            checkInside(place, row);
        }
        add(place, plan);
    }
}

/// Where the image has more than one of something, and nobody says which, a guess could be wrong unnoticed.
void TablePoints::checkPlans() const
{
    if (m_options.plan) {
        return;
    }
    std::string missing;
    const auto check = [&](unsigned long size, bool bTold, const char* name) {
        if (size > 1 && !bTold) {
            missing.append(missing.empty() ? "" : ", ").append(name);
        }
    };
    check(m_image.getSizeZ(), m_bVolume, "z");
    check(m_image.getSizeC(), m_table.has(eColumn::c), "c");
    check(m_image.getSizeT(), m_table.has(eColumn::t), "t");
    if (!missing.empty()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::ePlanNotTold, m_imageFile, m_image.getGeometry().toString(),
                               m_table.getFile(), missing);
    }
}

PlanIndex TablePoints::readPlan(const std::array<std::string, 5>& fields, unsigned long row) const
{
    PlanIndex plan = m_options.plan.value_or(PlanIndex());
    plan.z = m_bVolume ? 0 : plan.z;
    if (m_table.has(eColumn::c)) {
        plan.c = m_table.toIndex(fields[at(eColumn::c)], eColumn::c, row);
    }
    if (m_table.has(eColumn::t)) {
        plan.t = m_table.toIndex(fields[at(eColumn::t)], eColumn::t, row);
    }
    if ((!m_bVolume && plan.z >= m_image.getSizeZ()) || plan.c >= m_image.getSizeC() || plan.t >= m_image.getSizeT()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoSuchPlan, m_table.placeOf(row), plan.z, plan.c, plan.t,
                               m_imageFile, m_image.getGeometry().toString());
    }
    return plan;
}

/// The origin of a calibration is the corner of the first pixel; whole pixels are centres.
std::array<double, 3> TablePoints::readPlace(const std::array<std::string, 5>& fields, unsigned long row) const
{
    std::array<double, 3> place{};
    for (const eColumn column : {eColumn::x, eColumn::y, eColumn::z}) {
        if (m_table.has(column)) {
            place[at(column)] = m_table.toNumber(fields[at(column)], column, row);
        }
    }
    if (m_options.bCalibrated) {
        const image::GeometricCalibration& calibration = *m_image.getGeometricCalibration();
        const double origins[] = {calibration.getOriginX(), calibration.getOriginY(), calibration.getOriginZ()};
        const double sizes[] = {calibration.getPixelSizeX(), calibration.getPixelSizeY(), calibration.getPixelSizeZ()};
        for (unsigned long axis = 0; axis < (m_bVolume ? 3 : 2); ++axis) {
            place[axis] = (place[axis] - origins[axis]) / sizes[axis] - 0.5;
        }
    }
    return place;
}

void TablePoints::checkInside(const std::array<double, 3>& place, unsigned long row) const
{
    const unsigned long sizes[] = {m_image.getSizeX(), m_image.getSizeY(), m_bVolume ? m_image.getSizeZ() : 1};
    bool bInside = true;
    std::array<double, 3> last{};
    for (unsigned long axis = 0; axis < 3; ++axis) {
        last[axis] = static_cast<double>(sizes[axis]) - 1;
        bInside = bInside && place[axis] >= 0 && place[axis] <= last[axis];
    }
    if (!bInside) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::ePointOutside, m_table.placeOf(row),
                               textOf(place, m_bVolume), m_imageFile, textOf({}, m_bVolume), textOf(last, m_bVolume));
    }
}

void TablePoints::add(const std::array<double, 3>& place, const PlanIndex& plan)
{
    if (m_bVolume) {
        Coords3d& point = m_points3d->find(plan)->access<Coords3dColl::Coll>().emplace_back();
        point.access<Coords3d::X>() = place[0];
        point.access<Coords3d::Y>() = place[1];
        point.access<Coords3d::Z>() = place[2];
    } else {
        Coords2d& point = m_points2d->find(plan)->access<Coords2dColl::Coll>().emplace_back();
        point.access<Coords2d::X>() = place[0];
        point.access<Coords2d::Y>() = place[1];
    }
    m_places.push_back(place);
    m_plans.push_back(plan);
}

} // namespace orlix::cli
