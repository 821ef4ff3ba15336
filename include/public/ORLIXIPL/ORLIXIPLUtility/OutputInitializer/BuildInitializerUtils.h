// What a missing output looks like that is built from nothing but a size: a binary image of one channel and one time
// step.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"

namespace orlix::imaproc::util {

/// A binary plan of the size that the attribute holds when it is asked; for customOutput. An attribute that is empty,
/// or gone by then, throws ORLIXIPLUtilityException.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputBuild2d(const boost::weak_ptr<const attr::InOutputImg2dSize>& size);
/// The same for a binary volume.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputBuild3d(const boost::weak_ptr<const attr::InOutputImg3dSize>& size);

/// The first as a type, for CustomOutput.
struct OutputBuild2d
{
    template <class TAttributes>
    static boost::shared_ptr<const BaseCustomImageInfo> make(const TAttributes& attributes)
    {
        return outputBuild2d(processor::own<attr::InOutputImg2dSize>(attributes));
    }
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        const attr::Img2dSize* const size = processor::pointerTo(values.template get<attr::InOutputImg2dSize>());
        return size == nullptr
                   ? ImagePtr()
                   : image::createImage(*image::geometry2d(image::eImageBufferType::eBufferBinary, size->X, size->Y));
    }
};

/// The second.
struct OutputBuild3d
{
    template <class TAttributes>
    static boost::shared_ptr<const BaseCustomImageInfo> make(const TAttributes& attributes)
    {
        return outputBuild3d(processor::own<attr::InOutputImg3dSize>(attributes));
    }
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        const attr::Img3dSize* const size = processor::pointerTo(values.template get<attr::InOutputImg3dSize>());
        return size == nullptr ? ImagePtr()
                               : image::createImage(*image::geometry3d(image::eImageBufferType::eBufferBinary, size->X,
                                                                       size->Y, size->Z));
    }
};

} // namespace orlix::imaproc::util
