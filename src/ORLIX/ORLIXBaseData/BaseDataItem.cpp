// Root of the data that attributes carry beside images.
#include "ORLIX/ORLIXBaseData/BaseDataItem.h"

#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix {

BaseDataItem::~BaseDataItem() = default;

bool BaseDataItem::hasCopySupport() const
{
    return true;
}

std::ostream& operator<<(std::ostream& stream, const BaseDataItem& item)
{
    item.print(stream);
    return stream;
}

namespace details {

void raiseOtherClass(const BaseDynamicObject& target, const BaseDynamicObject& source)
{
    raise<eORLIXBaseDataMessage>(ORLIX_HERE, eORLIXBaseDataMessage::eOtherClass, target.getClassName(),
                                 source.getClassName());
}

} // namespace details

} // namespace orlix
