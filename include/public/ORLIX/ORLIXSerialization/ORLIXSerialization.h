// The whole public face of ORLIXSerialization.
#pragma once

#include "ORLIX/ORLIXSerialization/ArchiveSectionManager.h"
#include "ORLIX/ORLIXSerialization/ArchiveValue.h"
#include "ORLIX/ORLIXSerialization/BaseArchive.h"
#include "ORLIX/ORLIXSerialization/BaseIArchive.h"
#include "ORLIX/ORLIXSerialization/BaseOArchive.h"
#include "ORLIX/ORLIXSerialization/ClassVersion.h"
#include "ORLIX/ORLIXSerialization/Export.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLog.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/SerializationIItem.h"
#include "ORLIX/ORLIXSerialization/SerializationOItem.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
