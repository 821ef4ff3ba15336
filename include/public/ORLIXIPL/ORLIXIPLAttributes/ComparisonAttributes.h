// The attributes of image comparison.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CompareResult.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgComparisonTolerance.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InImg1 final : public processor::NamedAttribute<InImg1, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InImg1";
    static constexpr const char* g_toolTip = "First input image";
};

class ORLIXIPLATTRIBUTES_API InImg2 final : public processor::NamedAttribute<InImg2, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InImg2";
    static constexpr const char* g_toolTip = "Second input image";
};

class ORLIXIPLATTRIBUTES_API InSubImg2d1 final : public processor::NamedAttribute<InSubImg2d1, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InSubImg2d1";
    static constexpr const char* g_toolTip = "First input plan";
};

class ORLIXIPLATTRIBUTES_API InSubImg2d2 final : public processor::NamedAttribute<InSubImg2d2, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InSubImg2d2";
    static constexpr const char* g_toolTip = "Second input plan";
};

class ORLIXIPLATTRIBUTES_API InYStrip2d1 final
    : public processor::NamedAttribute<InYStrip2d1, BaseInputYStrip2dAttribute>
{
public:
    static constexpr const char* g_name = "InYStrip2d1";
    static constexpr const char* g_toolTip = "First input strip: a range of lines of a plan";
};

class ORLIXIPLATTRIBUTES_API InYStrip2d2 final
    : public processor::NamedAttribute<InYStrip2d2, BaseInputYStrip2dAttribute>
{
public:
    static constexpr const char* g_name = "InYStrip2d2";
    static constexpr const char* g_toolTip = "Second input strip: a range of lines of a plan";
};

class ORLIXIPLATTRIBUTES_API InOptImgComparisonTolerance final
    : public processor::NamedAttribute<InOptImgComparisonTolerance,
                                       processor::BaseInputOptionalDataItemAttribute<ImgComparisonTolerance>>
{
public:
    static constexpr const char* g_name = "InOptImgComparisonTolerance";
    static constexpr const char* g_toolTip =
        "How far apart two pixels may be and still count as the same; none if unset";
};

class ORLIXIPLATTRIBUTES_API InImgComparisonTolerance final
    : public processor::NamedAttribute<InImgComparisonTolerance,
                                       processor::BaseInputMandatoryDataItemAttribute<ImgComparisonTolerance>>
{
public:
    static constexpr const char* g_name = "InImgComparisonTolerance";
    static constexpr const char* g_toolTip = "How far apart two pixels may be and still count as the same";
};

class ORLIXIPLATTRIBUTES_API OutCompareResult final
    : public processor::NamedAttribute<OutCompareResult, processor::BaseOutputDataItemAttribute<CompareResult>>
{
public:
    static constexpr const char* g_name = "OutCompareResult";
    static constexpr const char* g_toolTip = "How many pixels differ, and where the first difference lies";
};

} // namespace orlix::imaproc::attr
