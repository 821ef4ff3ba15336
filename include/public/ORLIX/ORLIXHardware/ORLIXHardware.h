// Everything public of ORLIXHardware.
#pragma once

#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIX/ORLIXHardware/ProcessorInfo.h"
