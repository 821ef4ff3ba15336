// Everything public of ORLIXMath.
#pragma once

#include "ORLIX/ORLIXMath/Export.h"
#include "ORLIX/ORLIXMath/Round.h"
#include "ORLIX/ORLIXMath/Simd/BlockMap.h"
#include "ORLIX/ORLIXMath/Simd/CacheLine.h"
#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"
#include "ORLIX/ORLIXMath/Simd/Pack.h"
#include "ORLIX/ORLIXMath/Simd/PackArithmetic.h"
#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/PackMap.h"
#include "ORLIX/ORLIXMath/Simd/RangeTest.h"
#include "ORLIX/ORLIXMath/Simd/Register.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"
#include "ORLIX/ORLIXMath/Simd/WidenToDouble.h"
#include "ORLIX/ORLIXMath/Truncate.h"
