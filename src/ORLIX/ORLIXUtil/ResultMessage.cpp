// Texts that results share.
#include "ORLIX/ORLIXUtil/ResultMessage.h"

namespace orlix {

namespace {

const std::string g_outOfMemory =
    "There is not enough memory: end other programs, work on smaller images, or on fewer of them at a time";

} // namespace

const std::string& ResultMessage::emptyText()
{
    static const std::string g_empty;
    return g_empty;
}

const std::string& ResultMessage::outOfMemoryText() noexcept
{
    return g_outOfMemory; // made at load, before memory can run out
}

} // namespace orlix
