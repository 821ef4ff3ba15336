// Which plan of an image: its position on the axes z, c and t.
#include "ORLIX/ORLIXBaseData/PlanIndex.h"

#include "ORLIX/ORLIXUtil/NumberText.h"

#include <ostream>

namespace orlix {

std::ostream& operator<<(std::ostream& stream, const PlanIndex& index)
{
    return stream << '(' << numberText(index.z) << ", " << numberText(index.c) << ", " << numberText(index.t) << ')';
}

} // namespace orlix
