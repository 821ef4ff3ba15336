// The attributes of the operators that hold a number.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InOptEraseValue final
    : public processor::NamedAttribute<InOptEraseValue, processor::BaseValueAttribute<double>>
{
public:
    static constexpr const char* g_name = "InOptEraseValue";
    static constexpr const char* g_toolTip = "Value of every pixel of the erased image; 0 if unset";

    bool isOptional() const override { return true; }
};

} // namespace orlix::imaproc::attr
