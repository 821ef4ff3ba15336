// Numbers in an order that their owner knows, also plan by plan.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaf.h"
#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"

#include <span>

namespace orlix::imaproc::attr {

struct DoublesLeaves
{
    struct Coll : DataItemColl<double>
    {
        static constexpr const char* g_name = "Coll";
    };
};
struct DoublesRecord : DoublesLeaves, DataItemLeaves<DoublesLeaves::Coll>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Doubles";
};
class Doubles final : public DataItemNode<Doubles, DoublesRecord>
{};
using PlanIndexedDoubles = PlanIndexedColl<Doubles>;

/// All of them as they lie in memory; valid as long as `doubles` lives and keeps its size.
inline std::span<const double> valuesOf(const Doubles& doubles)
{
    return doubles.get<Doubles::Coll>();
}

} // namespace orlix::imaproc::attr
