// The attributes of the operators that hold a number.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
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

class ORLIXIPLATTRIBUTES_API InThresholdMin final
    : public processor::NamedAttribute<InThresholdMin, processor::BaseValueAttribute<double>>
{
public:
    static constexpr const char* g_name = "InThresholdMin";
    static constexpr const char* g_toolTip = "Smallest value that a threshold selects";
};

class ORLIXIPLATTRIBUTES_API InThresholdMax final
    : public processor::NamedAttribute<InThresholdMax, processor::BaseValueAttribute<double>>
{
public:
    static constexpr const char* g_name = "InThresholdMax";
    static constexpr const char* g_toolTip = "Largest value that a threshold selects";
};

} // namespace orlix::imaproc::attr
