// The attributes that say which part of an image an operator takes, writes or makes.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InInputImg2dOffset final
    : public processor::NamedAttribute<InInputImg2dOffset, processor::BaseInputMandatoryDataItemAttribute<Img2dOffset>>
{
public:
    static constexpr const char* g_name = "InInputImg2dOffset";
    static constexpr const char* g_toolTip = "Where the region begins: X and Y in pixels from the first one";
};

class ORLIXIPLATTRIBUTES_API InInputImg3dOffset final
    : public processor::NamedAttribute<InInputImg3dOffset, processor::BaseInputMandatoryDataItemAttribute<Img3dOffset>>
{
public:
    static constexpr const char* g_name = "InInputImg3dOffset";
    static constexpr const char* g_toolTip = "Where the region begins: X, Y and Z in pixels from the first one";
};

class ORLIXIPLATTRIBUTES_API InOutputImg2dSize final
    : public processor::NamedAttribute<InOutputImg2dSize, processor::BaseInputMandatoryDataItemAttribute<Img2dSize>>
{
public:
    static constexpr const char* g_name = "InOutputImg2dSize";
    static constexpr const char* g_toolTip = "Size of the output: X and Y in pixels";
};

class ORLIXIPLATTRIBUTES_API InOutputImg3dSize final
    : public processor::NamedAttribute<InOutputImg3dSize, processor::BaseInputMandatoryDataItemAttribute<Img3dSize>>
{
public:
    static constexpr const char* g_name = "InOutputImg3dSize";
    static constexpr const char* g_toolTip = "Size of the output: X, Y and Z in pixels";
};

class ORLIXIPLATTRIBUTES_API InAxis final : public processor::NamedAttribute<InAxis, processor::IPEnumAttribute<eAxis>>
{
public:
    static constexpr const char* g_name = "InAxis";
    static constexpr const char* g_toolTip = "Axis that the slice is perpendicular to: x, y or z";
};

class ORLIXIPLATTRIBUTES_API InSliceIndex final
    : public processor::NamedAttribute<InSliceIndex, processor::BaseValueAttribute<unsigned long>>
{
public:
    static constexpr const char* g_name = "InSliceIndex";
    static constexpr const char* g_toolTip = "Number of the slice on its axis, from 0";
};

} // namespace orlix::imaproc::attr
