#include "ORLIX/ORLIXBaseProcessing/KernelIdentifiers.h"

namespace orlix::processor {

std::string DataTypeIdentifierColl::toString() const
{
    if (m_key == 0) {
        return "no type";
    }
    constexpr unsigned nbIds = BaseDataTypeIdentifier::g_nbIds;
    const unsigned first = (m_key - 1) / nbIds;
    const std::string last = std::to_string((m_key - 1) % nbIds);
    return first == 0 ? "type " + last : "types " + std::to_string(first - 1) + " and " + last;
}

} // namespace orlix::processor
