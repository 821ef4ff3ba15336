// The whole public face of ORLIXIPLAttributes.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "ORLIXIPL/ORLIXIPLAttributes/BufferTypeAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/PointAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/RandomAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
