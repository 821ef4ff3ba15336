// Points at which values of an image are wanted, in 2d and in 3d, also plan by plan.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaf.h"
#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

#include <span>

namespace orlix::imaproc::attr {

struct Coords2dLeaves
{
    struct X : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "X";
    };
    struct Y : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Y";
    };
};
/// A point of a plan, in pixels; the centre of the first pixel is (0, 0).
struct Coords2d : Coords2dLeaves, DataItemLeaves<Coords2dLeaves::X, Coords2dLeaves::Y>
{};

struct Coords2dCollLeaves
{
    struct Coll : DataItemColl<Coords2d>
    {
        static constexpr const char* g_name = "Coll";
    };
};
struct Coords2dCollRecord : Coords2dCollLeaves, DataItemLeaves<Coords2dCollLeaves::Coll>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Coords2dColl";
};
/// Points of a plan in any order, also several times the same one: `coll.get<Coords2dColl::Coll>()[i]
/// .get<Coords2d::X>()`.
class Coords2dColl final : public DataItemNode<Coords2dColl, Coords2dCollRecord>
{};
using PlanIndexedCoords2dColl = PlanIndexedColl<Coords2dColl>;

struct Coords3dLeaves : Coords2dLeaves
{
    struct Z : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Z";
    };
};
/// A point of a volume, in pixels; the centre of the first pixel is (0, 0, 0).
struct Coords3d : Coords3dLeaves, DataItemLeaves<Coords3dLeaves::X, Coords3dLeaves::Y, Coords3dLeaves::Z>
{};

struct Coords3dCollLeaves
{
    struct Coll : DataItemColl<Coords3d>
    {
        static constexpr const char* g_name = "Coll";
    };
};
struct Coords3dCollRecord : Coords3dCollLeaves, DataItemLeaves<Coords3dCollLeaves::Coll>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Coords3dColl";
};
/// Points of a volume, in the same way.
class Coords3dColl final : public DataItemNode<Coords3dColl, Coords3dCollRecord>
{};
/// Volumes go by channel and time step: their z is 0.
using PlanIndexedCoords3dColl = PlanIndexedColl<Coords3dColl>;

/// The points (xy[0], xy[1]), (xy[2], xy[3]), … Throws ORLIXBaseDataException where a coordinate is left over.
ORLIXIPLATTRIBUTES_API boost::shared_ptr<Coords2dColl> createCoords2dColl(std::span<const double> xy);
/// The points (xyz[0], xyz[1], xyz[2]), … in the same way.
ORLIXIPLATTRIBUTES_API boost::shared_ptr<Coords3dColl> createCoords3dColl(std::span<const double> xyz);

} // namespace orlix::imaproc::attr
