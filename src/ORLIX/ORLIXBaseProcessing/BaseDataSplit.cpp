#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"

namespace orlix::processor {

BaseDataSplit::~BaseDataSplit() = default;

} // namespace orlix::processor
