#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"

#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLogMessages.h"
#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<Coords2dColl> g_registration2d;
const DynamicRegistrator<Coords3dColl> g_registration3d;
const DynamicRegistrator<PlanIndexedCoords2dColl> g_registration2dByPlan;
const DynamicRegistrator<PlanIndexedCoords3dColl> g_registration3dByPlan;

unsigned long countPoints(std::span<const double> numbers, unsigned long nbAxes)
{
    if (numbers.size() % nbAxes != 0) {
        raise<eORLIXBaseDataMessage>(ORLIX_HERE, eORLIXBaseDataMessage::eIncompletePoint, numbers.size(), nbAxes);
    }
    return numbers.size() / nbAxes;
}

} // namespace

boost::shared_ptr<Coords2dColl> createCoords2dColl(std::span<const double> xy)
{
    const unsigned long nbPoints = countPoints(xy, 2);
    const auto coll = boost::make_shared<Coords2dColl>();
    std::vector<Coords2d>& points = coll->access<Coords2dColl::Coll>();
    points.resize(nbPoints);
    for (unsigned long i = 0; i < nbPoints; ++i) {
        points[i].access<Coords2d::X>() = xy[2 * i];
        points[i].access<Coords2d::Y>() = xy[2 * i + 1];
    }
    return coll;
}

boost::shared_ptr<Coords3dColl> createCoords3dColl(std::span<const double> xyz)
{
    const unsigned long nbPoints = countPoints(xyz, 3);
    const auto coll = boost::make_shared<Coords3dColl>();
    std::vector<Coords3d>& points = coll->access<Coords3dColl::Coll>();
    points.resize(nbPoints);
    for (unsigned long i = 0; i < nbPoints; ++i) {
        points[i].access<Coords3d::X>() = xyz[3 * i];
        points[i].access<Coords3d::Y>() = xyz[3 * i + 1];
        points[i].access<Coords3d::Z>() = xyz[3 * i + 2];
    }
    return coll;
}

} // namespace orlix::imaproc::attr
