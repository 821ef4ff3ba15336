#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RegionItems.h"

namespace orlix::imaproc::util {

ImagePtr getROI2dImg(const ImageConstPtr& inImg, unsigned long offsetX, unsigned long offsetY, unsigned long sizeX,
                     unsigned long sizeY)
{
    return processor::runForOutput<GetROI2dImgLvl1, attr::OutImg>(
        processor::with<attr::InImg>(inImg),
        processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(offsetX, offsetY)),
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(sizeX, sizeY)));
}

void getROI2dImg(const ImageConstPtr& inImg, unsigned long offsetX, unsigned long offsetY, unsigned long sizeX,
                 unsigned long sizeY, const ImagePtr& outImg)
{
    const auto offset = makeItem<attr::Img2dOffset>(offsetX, offsetY);
    const auto size = makeItem<attr::Img2dSize>(sizeX, sizeY);
    if (!processor::runStraight<GetROI2dImgLvl1>(processor::with<attr::InImg>(inImg),
                                                 processor::with<attr::InInputImg2dOffset>(processor::borrowed(offset)),
                                                 processor::with<attr::InOutputImg2dSize>(processor::borrowed(size)),
                                                 processor::with<attr::OutImg>(outImg))) {
        processor::run<GetROI2dImgLvl1>(
            processor::with<attr::InImg>(inImg),
            processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(offsetX, offsetY)),
            processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(sizeX, sizeY)),
            processor::with<attr::OutImg>(outImg));
    }
}

boost::shared_ptr<GetROI2dImgLvl1> getROI2dImg_async(const ImageConstPtr& inImg, unsigned long offsetX,
                                                     unsigned long offsetY, unsigned long sizeX, unsigned long sizeY)
{
    return processor::start<GetROI2dImgLvl1>(
        processor::with<attr::InImg>(inImg),
        processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(offsetX, offsetY)),
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(sizeX, sizeY)));
}

boost::shared_ptr<GetROI2dImgLvl1> getROI2dImg_async(const ImageConstPtr& inImg, unsigned long offsetX,
                                                     unsigned long offsetY, unsigned long sizeX, unsigned long sizeY,
                                                     const ImagePtr& outImg)
{
    return processor::start<GetROI2dImgLvl1>(
        processor::with<attr::InImg>(inImg),
        processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(offsetX, offsetY)),
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(sizeX, sizeY)),
        processor::with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<GetROI2dImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
