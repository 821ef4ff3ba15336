// A data item made of named children in a fixed order.
#pragma once

#include "ORLIX/ORLIXBaseData/BaseDataItem.h"

#include <string>
#include <vector>

namespace orlix {

class ORLIXBASEDATA_API BaseDataItemNode : public BaseDataItem
{
public:
    ~BaseDataItemNode() override;

    /// In the order of declaration, which is also the order in an archive.
    virtual std::vector<std::string> getChildNames() const = 0;

protected:
    BaseDataItemNode() = default;
    BaseDataItemNode(const BaseDataItemNode&) = default;
    BaseDataItemNode& operator=(const BaseDataItemNode&) = default;
};

} // namespace orlix
