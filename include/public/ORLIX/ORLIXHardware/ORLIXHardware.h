// Everything public of ORLIXHardware.
#pragma once

#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIX/ORLIXHardware/Export.h"
#include "ORLIX/ORLIXHardware/GpuDescription.h"
#include "ORLIX/ORLIXHardware/GpuLayer.h"
#include "ORLIX/ORLIXHardware/LauncherInfo.h"
#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLog.h"
#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLogMessages.h"
#include "ORLIX/ORLIXHardware/ORLIXHardwareException.h"
#include "ORLIX/ORLIXHardware/ProcessorInfo.h"
