// The whole public face of ORLIXCore.
#pragma once

#include "ORLIX/ORLIXCore/ActionTypes.h"
#include "ORLIX/ORLIXCore/BaseAction.h"
#include "ORLIX/ORLIXCore/BaseActionProvider.h"
#include "ORLIX/ORLIXCore/BaseComplexAction.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/CallWatch.h"
#include "ORLIX/ORLIXCore/ComputerInfoPool.h"
#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXCore/GpuSupport.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLog.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXCore/ORLIXCoreException.h"
#include "ORLIX/ORLIXCore/ProcessEnding.h"
#include "ORLIX/ORLIXCore/RunContext.h"
#include "ORLIX/ORLIXCore/RunLoop.h"
