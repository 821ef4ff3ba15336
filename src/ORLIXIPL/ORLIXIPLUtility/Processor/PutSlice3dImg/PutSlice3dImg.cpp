#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl1.h"

namespace orlix::imaproc::util {

ImagePtr putSlice3dImg(const ImageConstPtr& inImg, const ImageConstPtr& slice, const eAxis& axis, unsigned long index)
{
    return processor::runForOutput<PutSlice3dImgLvl1, attr::OutImg>(
        processor::with<attr::InImg3d>(inImg), processor::with<attr::InImg2d>(slice),
        processor::with<attr::InAxis>(axis), processor::with<attr::InSliceIndex>(index));
}

void putSlice3dImg(const ImageConstPtr& inImg, const ImageConstPtr& slice, const eAxis& axis, unsigned long index,
                   const ImagePtr& outImg)
{
    processor::run<PutSlice3dImgLvl1>(processor::with<attr::InImg3d>(inImg), processor::with<attr::InImg2d>(slice),
                                      processor::with<attr::InAxis>(axis), processor::with<attr::InSliceIndex>(index),
                                      processor::with<attr::OutImg>(outImg));
}

boost::shared_ptr<PutSlice3dImgLvl1> putSlice3dImg_async(const ImageConstPtr& inImg, const ImageConstPtr& slice,
                                                         const eAxis& axis, unsigned long index)
{
    return processor::start<PutSlice3dImgLvl1>(
        processor::with<attr::InImg3d>(inImg), processor::with<attr::InImg2d>(slice),
        processor::with<attr::InAxis>(axis), processor::with<attr::InSliceIndex>(index));
}

boost::shared_ptr<PutSlice3dImgLvl1> putSlice3dImg_async(const ImageConstPtr& inImg, const ImageConstPtr& slice,
                                                         const eAxis& axis, unsigned long index, const ImagePtr& outImg)
{
    return processor::start<PutSlice3dImgLvl1>(
        processor::with<attr::InImg3d>(inImg), processor::with<attr::InImg2d>(slice),
        processor::with<attr::InAxis>(axis), processor::with<attr::InSliceIndex>(index),
        processor::with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<PutSlice3dImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
