#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"

#include <locale>
#include <sstream>

namespace orlix::processor::details {

std::string printedItem(const BaseDataItem& item)
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    item.print(stream);
    return stream.str();
}

} // namespace orlix::processor::details
