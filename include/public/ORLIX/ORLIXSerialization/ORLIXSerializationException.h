// Exception of ORLIXSerialization.
#pragma once

#include "ORLIX/ORLIXSerialization/Export.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

namespace orlix {

/// Thrown where an archive holds something else than what is read, and by everything else that raises a message of
/// `eORLIXSerializationMessage`.
class ORLIXSERIALIZATION_API ORLIXSerializationException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXSerializationException() override;
};

} // namespace orlix
