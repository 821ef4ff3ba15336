// Which plan of an image: its position on the axes z, c and t.
#include "ORLIX/ORLIXBaseData/PlanIndex.h"

#include <ostream>

namespace orlix {

std::ostream& operator<<(std::ostream& stream, const PlanIndex& index)
{
    return stream << '(' << index.z << ", " << index.c << ", " << index.t << ')';
}

} // namespace orlix
