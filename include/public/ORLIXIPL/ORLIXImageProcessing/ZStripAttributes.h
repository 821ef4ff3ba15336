// Attributes that carry strips of volumes.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageZStrip3d.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"

namespace orlix::imaproc {

class ORLIXIMAGEPROCESSING_API BaseZStrip3dAttribute : public BaseHeldStripAttribute<image::BaseImageZStrip3d>
{
public:
    /// For attributes that hold a strip.
    const image::BaseImageZStrip3d& getBaseImageZStrip3d() const { return getBaseStrip(); }
};

class ORLIXIMAGEPROCESSING_API BaseInputZStrip3dAttribute
    : public BaseTStripAttribute<BaseZStrip3dAttribute, image::InputImageZStrip3d, false>
{};

class ORLIXIMAGEPROCESSING_API BaseOutputZStrip3dAttribute
    : public BaseTStripAttribute<BaseZStrip3dAttribute, image::OutputImageZStrip3d, true>
{};

class ORLIXIMAGEPROCESSING_API BaseInOutZStrip3dAttribute
    : public BaseTStripAttribute<BaseZStrip3dAttribute, image::InOutImageZStrip3d, true>
{};

} // namespace orlix::imaproc
