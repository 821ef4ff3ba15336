// Points of a volume together with the values that are found there.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaf.h"
#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"

namespace orlix::imaproc::attr {

struct Voxel3dLeaves : Coords3dLeaves
{
    struct Value : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Value";
    };
};
struct Voxel3dRecord : Voxel3dLeaves,
                       DataItemLeaves<Coords3dLeaves::X, Coords3dLeaves::Y, Coords3dLeaves::Z, Voxel3dLeaves::Value>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Voxel3d";
};
/// A point in pixels, and its value; 0 until it is found.
class Voxel3d final : public DataItemNode<Voxel3d, Voxel3dRecord>
{};

struct Voxels3dLeaves
{
    struct Coll : DataItemColl<boost::shared_ptr<Voxel3d>>
    {
        static constexpr const char* g_name = "Coll";
    };
};
struct Voxels3dRecord : Voxels3dLeaves, DataItemLeaves<Voxels3dLeaves::Coll>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Voxels3d";
};
/// Several of them, each shared with whoever else holds it.
class Voxels3d : public DataItemNode<Voxels3d, Voxels3dRecord>
{};

} // namespace orlix::imaproc::attr
