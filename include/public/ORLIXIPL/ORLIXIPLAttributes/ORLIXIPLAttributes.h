// The whole public face of ORLIXIPLAttributes.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
