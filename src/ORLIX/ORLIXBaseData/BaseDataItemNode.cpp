// A data item made of named children in a fixed order.
#include "ORLIX/ORLIXBaseData/BaseDataItemNode.h"

namespace orlix {

BaseDataItemNode::~BaseDataItemNode() = default;

} // namespace orlix
