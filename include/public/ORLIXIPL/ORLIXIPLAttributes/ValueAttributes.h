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

class ORLIXIPLATTRIBUTES_API InTheta final
    : public processor::NamedAttribute<InTheta, processor::BaseValueAttribute<float>>
{
public:
    static constexpr const char* g_name = "InTheta";
    static constexpr const char* g_toolTip =
        "Angle of lines in radians; in a volume, that by which they lean out of z, about y";
};

class ORLIXIPLATTRIBUTES_API InPhi final : public processor::NamedAttribute<InPhi, processor::BaseValueAttribute<float>>
{
public:
    static constexpr const char* g_name = "InPhi";
    static constexpr const char* g_toolTip = "Angle in radians by which lines of a volume are turned about z";
};

class ORLIXIPLATTRIBUTES_API InAlpha final
    : public processor::NamedAttribute<InAlpha, processor::BaseValueAttribute<float>>
{
public:
    static constexpr const char* g_name = "InAlpha";
    static constexpr const char* g_toolTip = "Angle in radians by which lines of a volume are turned about themselves";
};

class ORLIXIPLATTRIBUTES_API InOffset final
    : public processor::NamedAttribute<InOffset, processor::BaseValueAttribute<double>>
{
public:
    static constexpr const char* g_name = "InOffset";
    static constexpr const char* g_toolTip = "Distance between neighbouring lines in pixels, measured across them";
};

} // namespace orlix::imaproc::attr
