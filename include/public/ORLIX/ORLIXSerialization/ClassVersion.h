// The version record that a class leaves in an archive, once per archive.
#pragma once

#include "ORLIX/ORLIXSerialization/BaseIArchive.h"
#include "ORLIX/ORLIXSerialization/BaseOArchive.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

namespace orlix {

/// Writes a section named by the class that holds "version", unless this archive has the record already. A class's
/// `write` is then: the base's `write`, this, and its own items.
ORLIXSERIALIZATION_API ProcessingResult<bool> writeClassVersion(BaseOArchive& archive, const std::string& className,
                                                                unsigned int version);

/// Reads the record unless it was read from this archive before; `archive.getRegisterClassVersion(className)` tells the
/// version from then on. Raises ORLIXSerializationException if it is above `newestVersion`.
ORLIXSERIALIZATION_API ProcessingResult<bool> readClassVersion(BaseIArchive& archive, const std::string& className,
                                                               unsigned int newestVersion);

} // namespace orlix
