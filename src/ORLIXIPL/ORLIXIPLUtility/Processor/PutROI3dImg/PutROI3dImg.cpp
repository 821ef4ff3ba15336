#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RegionItems.h"

namespace orlix::imaproc::util {

void putROI3dImg(const ImagePtr& inOutImg, const ImageConstPtr& roiImg, unsigned long offsetX, unsigned long offsetY,
                 unsigned long offsetZ)
{
    putROI3dImg(inOutImg, roiImg, offsetX, offsetY, offsetZ, inOutImg);
}

void putROI3dImg(const ImageConstPtr& inImg, const ImageConstPtr& roiImg, unsigned long offsetX, unsigned long offsetY,
                 unsigned long offsetZ, const ImagePtr& outImg)
{
    const auto offset = makeItem<attr::Img3dOffset>(offsetX, offsetY, offsetZ);
    if (!processor::runStraight<PutROI3dImgLvl1>(processor::with<attr::InImg3d>(inImg),
                                                 processor::with<attr::InROIImg3d>(roiImg),
                                                 processor::with<attr::InInputImg3dOffset>(processor::borrowed(offset)),
                                                 processor::with<attr::OutImg>(outImg))) {
        processor::run<PutROI3dImgLvl1>(
            processor::with<attr::InImg3d>(inImg), processor::with<attr::InROIImg3d>(roiImg),
            processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(offsetX, offsetY, offsetZ)),
            processor::with<attr::OutImg>(outImg));
    }
}

boost::shared_ptr<PutROI3dImgLvl1> putROI3dImg_async(const ImagePtr& inOutImg, const ImageConstPtr& roiImg,
                                                     unsigned long offsetX, unsigned long offsetY,
                                                     unsigned long offsetZ)
{
    return processor::start<PutROI3dImgLvl1>(
        processor::with<attr::InImg3d>(inOutImg), processor::with<attr::InROIImg3d>(roiImg),
        processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(offsetX, offsetY, offsetZ)),
        processor::with<attr::OutImg>(inOutImg));
}

boost::shared_ptr<PutROI3dImgLvl1> putROI3dImg_async(const ImageConstPtr& inImg, const ImageConstPtr& roiImg,
                                                     unsigned long offsetX, unsigned long offsetY,
                                                     unsigned long offsetZ, const ImagePtr& outImg)
{
    return processor::start<PutROI3dImgLvl1>(
        processor::with<attr::InImg3d>(inImg), processor::with<attr::InROIImg3d>(roiImg),
        processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(offsetX, offsetY, offsetZ)),
        processor::with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<PutROI3dImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
