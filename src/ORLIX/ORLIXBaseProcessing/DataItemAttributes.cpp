#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"

#include <sstream>

namespace orlix::processor::details {

std::string printedItem(const BaseDataItem& item)
{
    std::ostringstream stream;
    item.print(stream);
    return stream.str();
}

} // namespace orlix::processor::details
