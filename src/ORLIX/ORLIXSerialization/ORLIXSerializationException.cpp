// Exception of ORLIXSerialization.
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"

namespace orlix {

ORLIXSerializationException::~ORLIXSerializationException() = default;

} // namespace orlix
