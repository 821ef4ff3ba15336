// An archive that is written.
#pragma once

#include "ORLIX/ORLIXSerialization/ArchiveValue.h"
#include "ORLIX/ORLIXSerialization/BaseArchive.h"

namespace orlix {

class ORLIXSERIALIZATION_API BaseOArchive : public BaseArchive
{
public:
    ~BaseOArchive() override;

    /// Appends an item to the section that is open. Any byte may stand in a name or a string.
    virtual void writeValue(const std::string& name, const ArchiveValue& value) = 0;

protected:
    BaseOArchive();
};

} // namespace orlix
