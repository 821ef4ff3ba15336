#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl1.h"

namespace orlix::imaproc::util {

ImagePtr getSlice3dImg(const ImageConstPtr& inImg, const eAxis& axis, unsigned long index)
{
    return processor::runForOutput<GetSlice3dImgLvl1, attr::OutImg2d>(processor::with<attr::InImg3d>(inImg),
                                                                      processor::with<attr::InAxis>(axis),
                                                                      processor::with<attr::InSliceIndex>(index));
}

void getSlice3dImg(const ImageConstPtr& inImg, const eAxis& axis, unsigned long index, const ImagePtr& outImg)
{
    processor::run<GetSlice3dImgLvl1>(processor::with<attr::InImg3d>(inImg), processor::with<attr::InAxis>(axis),
                                      processor::with<attr::InSliceIndex>(index),
                                      processor::with<attr::OutImg2d>(outImg));
}

boost::shared_ptr<GetSlice3dImgLvl1> getSlice3dImg_async(const ImageConstPtr& inImg, const eAxis& axis,
                                                         unsigned long index)
{
    return processor::start<GetSlice3dImgLvl1>(processor::with<attr::InImg3d>(inImg),
                                               processor::with<attr::InAxis>(axis),
                                               processor::with<attr::InSliceIndex>(index));
}

boost::shared_ptr<GetSlice3dImgLvl1> getSlice3dImg_async(const ImageConstPtr& inImg, const eAxis& axis,
                                                         unsigned long index, const ImagePtr& outImg)
{
    return processor::start<GetSlice3dImgLvl1>(
        processor::with<attr::InImg3d>(inImg), processor::with<attr::InAxis>(axis),
        processor::with<attr::InSliceIndex>(index), processor::with<attr::OutImg2d>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<GetSlice3dImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg2d>(processor);
}

} // namespace orlix::imaproc::util
