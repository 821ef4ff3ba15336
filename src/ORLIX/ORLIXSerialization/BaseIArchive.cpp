// An archive that is read.
#include "ORLIX/ORLIXSerialization/BaseIArchive.h"

namespace orlix {

BaseIArchive::BaseIArchive() = default;

BaseIArchive::~BaseIArchive() = default;

} // namespace orlix
