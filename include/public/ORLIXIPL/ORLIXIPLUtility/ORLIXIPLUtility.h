// The whole public face of ORLIXIPLUtility.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"
