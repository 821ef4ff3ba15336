// The whole public face of ORLIXImageIO.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLog.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/ReadOptions.h"
#include "ORLIXIPL/ORLIXImageIO/ReadRegion.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteOptions.h"
