// Root of the data that attributes carry beside images.
#pragma once

#include "ORLIX/ORLIXBaseData/Export.h"
#include "ORLIX/ORLIXUtil/BaseDynamicObject.h"

#include <iosfwd>

namespace orlix {

/// A value object behind a class name: it can be copied, compared, printed, and kept in an archive. Several threads may
/// read one object; a change needs the object alone.
class ORLIXBASEDATA_API BaseDataItem : public BaseDynamicObject
{
public:
    ~BaseDataItem() override;

    bool hasCopySupport() const override; ///< true for every data item

    /// Same class and same content; content behind pointers is compared, and not-a-number equals itself.
    virtual bool isEqual(const BaseDataItem& other) const = 0;
    /// One line for people, such as "{Min: 0, Max: 255}".
    virtual void print(std::ostream& stream) const = 0;

protected:
    BaseDataItem() = default;
    BaseDataItem(const BaseDataItem&) = default;
    BaseDataItem& operator=(const BaseDataItem&) = default;
};

inline bool operator==(const BaseDataItem& left, const BaseDataItem& right)
{
    return left.isEqual(right);
}

ORLIXBASEDATA_API std::ostream& operator<<(std::ostream& stream, const BaseDataItem& item);

namespace details {

/// Raises ORLIXBaseDataException: `source` isn't of the class that copies from it.
[[noreturn]] ORLIXBASEDATA_API void raiseOtherClass(const BaseDynamicObject& target, const BaseDynamicObject& source);

} // namespace details

} // namespace orlix
