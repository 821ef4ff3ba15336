// Texts that results share.
#include "ORLIX/ORLIXUtil/ResultMessage.h"

namespace orlix {

namespace {

const NumberedText g_outOfMemory =
    "There is not enough memory: end other programs, work on smaller images, or on fewer of them at a time";

} // namespace

const NumberedText& ResultMessage::emptyText()
{
    static const NumberedText g_empty;
    return g_empty;
}

const NumberedText& ResultMessage::outOfMemoryText() noexcept
{
    return g_outOfMemory; // made at load, before memory can run out
}

} // namespace orlix
