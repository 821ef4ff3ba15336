// An archive that is written.
#include "ORLIX/ORLIXSerialization/BaseOArchive.h"

namespace orlix {

BaseOArchive::BaseOArchive() = default;

BaseOArchive::~BaseOArchive() = default;

} // namespace orlix
