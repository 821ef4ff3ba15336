// The attributes that say how random values are spread.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/GaussianParameter.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Range.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InOptOutputRange final
    : public processor::NamedAttribute<InOptOutputRange, processor::BaseInputOptionalDataItemAttribute<Range>>
{
public:
    static constexpr const char* g_name = "InOptOutputRange";
    static constexpr const char* g_toolTip =
        "Smallest and largest value of the output; all that its element type can hold if unset";
};

class ORLIXIPLATTRIBUTES_API InOutputRange final
    : public processor::NamedAttribute<InOutputRange, processor::BaseInputMandatoryDataItemAttribute<Range>>
{
public:
    static constexpr const char* g_name = "InOutputRange";
    static constexpr const char* g_toolTip = "Smallest and largest value of the output";
};

class ORLIXIPLATTRIBUTES_API InGaussianParameter final
    : public processor::NamedAttribute<InGaussianParameter,
                                       processor::BaseInputMandatoryDataItemAttribute<GaussianParameter>>
{
public:
    static constexpr const char* g_name = "InGaussianParameter";
    static constexpr const char* g_toolTip = "Mean and standard deviation of the normal law";
};

} // namespace orlix::imaproc::attr
