// Everything public of ORLIXMath.
#pragma once

#include "ORLIX/ORLIXMath/Round.h"
#include "ORLIX/ORLIXMath/Simd/Pack.h"
#include "ORLIX/ORLIXMath/Simd/Register.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"
#include "ORLIX/ORLIXMath/Truncate.h"
