// The text of a result that has none.
#include "ORLIX/ORLIXUtil/ResultMessage.h"

namespace orlix {

const std::string& ResultMessage::emptyText()
{
    static const std::string g_empty;
    return g_empty;
}

} // namespace orlix
