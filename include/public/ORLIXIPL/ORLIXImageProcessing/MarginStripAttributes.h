// Attributes that carry strips with margins.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2dWithKernel.h"
#include "ORLIXIPL/ORLIXImage/ImageZStrip3dWithKernel.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"

namespace orlix::imaproc {

class ORLIXIMAGEPROCESSING_API BaseYStrip2dWithKernelAttribute
    : public BaseHeldStripAttribute<image::BaseImageYStrip2dWithKernel>
{
public:
    /// For attributes that hold a strip.
    const image::BaseImageYStrip2dWithKernel& getBaseImageYStrip2dWithKernel() const { return getBaseStrip(); }
};

class ORLIXIMAGEPROCESSING_API BaseInputYStrip2dWithKernelAttribute
    : public BaseTStripAttribute<BaseYStrip2dWithKernelAttribute, image::InputImageYStrip2dWithKernel, false>
{};

class ORLIXIMAGEPROCESSING_API BaseZStrip3dWithKernelAttribute
    : public BaseHeldStripAttribute<image::BaseImageZStrip3dWithKernel>
{
public:
    /// For attributes that hold a strip.
    const image::BaseImageZStrip3dWithKernel& getBaseImageZStrip3dWithKernel() const { return getBaseStrip(); }
};

class ORLIXIMAGEPROCESSING_API BaseInputZStrip3dWithKernelAttribute
    : public BaseTStripAttribute<BaseZStrip3dWithKernelAttribute, image::InputImageZStrip3dWithKernel, false>
{};

} // namespace orlix::imaproc
