// Which plan of an image: its position on the axes z, c and t.
#pragma once

#include "ORLIX/ORLIXBaseData/Export.h"

#include <compare>
#include <iosfwd>

namespace orlix {

/// Ordered as plans are counted: z fastest, then c, then t.
struct PlanIndex
{
    unsigned long z = 0;
    unsigned long c = 0;
    unsigned long t = 0;

    constexpr PlanIndex() = default;
    constexpr PlanIndex(unsigned long indexZ, unsigned long indexC, unsigned long indexT)
        : z(indexZ), c(indexC), t(indexT)
    {}

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("z", &PlanIndex::z);
        visitor("c", &PlanIndex::c);
        visitor("t", &PlanIndex::t);
    }

    friend constexpr bool operator==(const PlanIndex&, const PlanIndex&) = default;
    friend constexpr std::strong_ordering operator<=>(const PlanIndex& left, const PlanIndex& right)
    {
        if (left.t != right.t) {
            return left.t <=> right.t;
        }
        return left.c != right.c ? left.c <=> right.c : left.z <=> right.z;
    }
};

/// "(z, c, t)", whatever the stream's locale
ORLIXBASEDATA_API std::ostream& operator<<(std::ostream& stream, const PlanIndex& index);

} // namespace orlix
