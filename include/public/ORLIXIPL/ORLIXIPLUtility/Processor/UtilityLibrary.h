// What makes a processor one of this library's.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"

namespace orlix::imaproc::util {

/// Names and tool tips of this library, for the scaffold.
struct ORLIXIPLUTILITY_API UtilityLibrary
{
    static constexpr const char* g_name = "ORLIXIPLUtility";
    static constexpr const char* g_namespace = "orlix::imaproc::util";
    static std::string toolTip(eProcessorMessage::domain id);
};

} // namespace orlix::imaproc::util
