#include "ORLIX/ORLIXBaseProcessing/BaseDataParser.h"

namespace orlix::processor {

BaseDataParser::~BaseDataParser() = default;

} // namespace orlix::processor
