#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RegionItems.h"

namespace orlix::imaproc::util {

void putROI2dImg(const ImagePtr& inOutImg, const ImageConstPtr& roiImg, unsigned long offsetX, unsigned long offsetY)
{
    putROI2dImg(inOutImg, roiImg, offsetX, offsetY, inOutImg);
}

void putROI2dImg(const ImageConstPtr& inImg, const ImageConstPtr& roiImg, unsigned long offsetX, unsigned long offsetY,
                 const ImagePtr& outImg)
{
    const auto offset = makeItem<attr::Img2dOffset>(offsetX, offsetY);
    if (!processor::runStraight<PutROI2dImgLvl1>(processor::with<attr::InImg>(inImg),
                                                 processor::with<attr::InROIImg>(roiImg),
                                                 processor::with<attr::InInputImg2dOffset>(processor::borrowed(offset)),
                                                 processor::with<attr::OutImg>(outImg))) {
        processor::run<PutROI2dImgLvl1>(
            processor::with<attr::InImg>(inImg), processor::with<attr::InROIImg>(roiImg),
            processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(offsetX, offsetY)),
            processor::with<attr::OutImg>(outImg));
    }
}

boost::shared_ptr<PutROI2dImgLvl1> putROI2dImg_async(const ImagePtr& inOutImg, const ImageConstPtr& roiImg,
                                                     unsigned long offsetX, unsigned long offsetY)
{
    return processor::start<PutROI2dImgLvl1>(
        processor::with<attr::InImg>(inOutImg), processor::with<attr::InROIImg>(roiImg),
        processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(offsetX, offsetY)),
        processor::with<attr::OutImg>(inOutImg));
}

boost::shared_ptr<PutROI2dImgLvl1> putROI2dImg_async(const ImageConstPtr& inImg, const ImageConstPtr& roiImg,
                                                     unsigned long offsetX, unsigned long offsetY,
                                                     const ImagePtr& outImg)
{
    return processor::start<PutROI2dImgLvl1>(
        processor::with<attr::InImg>(inImg), processor::with<attr::InROIImg>(roiImg),
        processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(offsetX, offsetY)),
        processor::with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<PutROI2dImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
