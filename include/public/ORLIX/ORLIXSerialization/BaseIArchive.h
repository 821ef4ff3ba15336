// An archive that is read.
#pragma once

#include "ORLIX/ORLIXSerialization/ArchiveValue.h"
#include "ORLIX/ORLIXSerialization/BaseArchive.h"

namespace orlix {

/// Whatever is asked for must come next in the archive. Everything else raises ORLIXSerializationException.
class ORLIXSERIALIZATION_API BaseIArchive : public BaseArchive
{
public:
    ~BaseIArchive() override;

    /// Reads the next item of the open section. On entry `value` tells by its alternative which type is asked for; it
    /// is changed only on success. Raises if the next entry has another name or type, or if its text is no such value.
    virtual void readValue(const std::string& name, ArchiveValue& value) = 0;

protected:
    BaseIArchive();
};

} // namespace orlix
