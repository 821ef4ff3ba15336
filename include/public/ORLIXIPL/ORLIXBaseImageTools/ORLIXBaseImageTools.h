// The public face of ORLIXBaseImageTools: parts of images.
#pragma once

#include "ORLIXIPL/ORLIXBaseImageTools/BorderPolicy.h"
#include "ORLIXIPL/ORLIXBaseImageTools/GpuBufferDataColl.h"
#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileColl.h"
#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileExtractor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLog.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"
#include "ORLIXIPL/ORLIXBaseImageTools/ORLIXBaseImageToolsException.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/TilePlaces.h"
