// The attributes of values at points: where they are wanted, how they are read, and what is found.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Doubles.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImageValueExtractionMethod.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Pixels2d.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Voxels3d.h"
#include "ORLIXIPL/ORLIXIPLAttributes/InterpolationPolicy.h"
#include "ORLIXIPL/ORLIXIPLAttributes/PlanIndexedCoordsAttribute.h"
#include "ORLIXIPL/ORLIXImageProcessing/TileCollAttributes.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InPICoords2dColl final
    : public processor::NamedAttribute<InPICoords2dColl, PlanIndexedCoordsAttribute<Coords2dColl>>
{
public:
    static constexpr const char* g_name = "InPICoords2dColl";
    static constexpr const char* g_toolTip = "Points by plan, in pixels; the centre of the first pixel is (0, 0)";
};

class ORLIXIPLATTRIBUTES_API InPICoords3dColl final
    : public processor::NamedAttribute<InPICoords3dColl, PlanIndexedCoordsAttribute<Coords3dColl>>
{
public:
    static constexpr const char* g_name = "InPICoords3dColl";
    static constexpr const char* g_toolTip = "Points by volume, in pixels; the centre of the first pixel is (0, 0, 0)";
};

class ORLIXIPLATTRIBUTES_API InCoords2dColl final
    : public processor::NamedAttribute<InCoords2dColl, processor::BaseInputMandatoryDataItemAttribute<Coords2dColl>>
{
public:
    static constexpr const char* g_name = "InCoords2dColl";
    static constexpr const char* g_toolTip = "Points of a plan, in pixels; the centre of the first pixel is (0, 0)";
};

class ORLIXIPLATTRIBUTES_API InCoords3dColl final
    : public processor::NamedAttribute<InCoords3dColl, processor::BaseInputMandatoryDataItemAttribute<Coords3dColl>>
{
public:
    static constexpr const char* g_name = "InCoords3dColl";
    static constexpr const char* g_toolTip =
        "Points of a volume, in pixels; the centre of the first pixel is (0, 0, 0)";
};

class ORLIXIPLATTRIBUTES_API InInterpolationPolicy final
    : public processor::NamedAttribute<InInterpolationPolicy, processor::IPEnumAttribute<eInterpolationPolicy>>
{
public:
    static constexpr const char* g_name = "InInterpolationPolicy";
    static constexpr const char* g_toolTip = "How a value between pixels is made from them: nearest, linear or cubic";
};

class ORLIXIPLATTRIBUTES_API InOptInterpolationPolicy final
    : public processor::NamedAttribute<InOptInterpolationPolicy, processor::IPEnumAttribute<eInterpolationPolicy>>
{
public:
    static constexpr const char* g_name = "InOptInterpolationPolicy";
    static constexpr const char* g_toolTip =
        "How a value between pixels is made from them: nearest, linear or cubic; linear if unset";

    InOptInterpolationPolicy() : NamedAttribute(eInterpolationPolicy::eIP_Linear) {}
    bool isOptional() const override { return true; }
};

class ORLIXIPLATTRIBUTES_API InImageValueExtractionMethod final
    : public processor::NamedAttribute<InImageValueExtractionMethod,
                                       processor::BaseInputMandatoryDataItemAttribute<ImageValueExtractionMethod>>
{
public:
    static constexpr const char* g_name = "InImageValueExtractionMethod";
    static constexpr const char* g_toolTip = "Whether values are read by tiles or by strips";
};

class ORLIXIPLATTRIBUTES_API InOptImageValueExtractionMethod final
    : public processor::NamedAttribute<InOptImageValueExtractionMethod,
                                       processor::BaseInputOptionalDataItemAttribute<ImageValueExtractionMethod>>
{
public:
    static constexpr const char* g_name = "InOptImageValueExtractionMethod";
    static constexpr const char* g_toolTip = "Whether values are read by tiles or by strips; what is faster if unset";
};

class ORLIXIPLATTRIBUTES_API OutPIImgGreyValues final
    : public processor::NamedAttribute<OutPIImgGreyValues, processor::BaseOutputDataItemAttribute<PlanIndexedDoubles>>
{
public:
    static constexpr const char* g_name = "OutPIImgGreyValues";
    static constexpr const char* g_toolTip = "Values by plan or volume, in the order of its points";
};

class ORLIXIPLATTRIBUTES_API OutImgGreyValues final
    : public processor::NamedAttribute<OutImgGreyValues, processor::BaseOutputDataItemAttribute<Doubles>>
{
public:
    static constexpr const char* g_name = "OutImgGreyValues";
    static constexpr const char* g_toolTip = "Values in the order of the points";
};

class ORLIXIPLATTRIBUTES_API InOutPixels2d final
    : public processor::NamedAttribute<InOutPixels2d, processor::BaseOutputDataItemAttribute<Pixels2d>>
{
public:
    static constexpr const char* g_name = "InOutPixels2d";
    static constexpr const char* g_toolTip = "Points of a plan that get their values";
};

class ORLIXIPLATTRIBUTES_API InOutVoxels3d final
    : public processor::NamedAttribute<InOutVoxels3d, processor::BaseOutputDataItemAttribute<Voxels3d>>
{
public:
    static constexpr const char* g_name = "InOutVoxels3d";
    static constexpr const char* g_toolTip = "Points of a volume that get their values";
};

class ORLIXIPLATTRIBUTES_API InTile2dColl final
    : public processor::NamedAttribute<InTile2dColl, BaseInputTile2dCollAttribute>
{
public:
    static constexpr const char* g_name = "InTile2dColl";
    static constexpr const char* g_toolTip = "Tiles of a plan, one around each point";
};

class ORLIXIPLATTRIBUTES_API InTile3dColl final
    : public processor::NamedAttribute<InTile3dColl, BaseInputTile3dCollAttribute>
{
public:
    static constexpr const char* g_name = "InTile3dColl";
    static constexpr const char* g_toolTip = "Tiles of a volume, one around each point";
};

} // namespace orlix::imaproc::attr
