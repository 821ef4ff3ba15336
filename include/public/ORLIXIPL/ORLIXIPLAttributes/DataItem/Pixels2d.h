// Points of a plan together with the values that are found there.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaf.h"
#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"

namespace orlix::imaproc::attr {

struct Pixel2dLeaves : Coords2dLeaves
{
    struct Value : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Value";
    };
};
struct Pixel2dRecord : Pixel2dLeaves, DataItemLeaves<Coords2dLeaves::X, Coords2dLeaves::Y, Pixel2dLeaves::Value>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Pixel2d";
};
/// A point in pixels, and its value; 0 until it is found.
class Pixel2d final : public DataItemNode<Pixel2d, Pixel2dRecord>
{};

struct Pixels2dLeaves
{
    struct Coll : DataItemColl<boost::shared_ptr<Pixel2d>>
    {
        static constexpr const char* g_name = "Coll";
    };
};
struct Pixels2dRecord : Pixels2dLeaves, DataItemLeaves<Pixels2dLeaves::Coll>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Pixels2d";
};
/// Several of them, each shared with whoever else holds it.
class Pixels2d : public DataItemNode<Pixels2d, Pixels2dRecord>
{};

} // namespace orlix::imaproc::attr
