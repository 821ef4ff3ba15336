#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RegionItems.h"

namespace orlix::imaproc::util {

ImagePtr getROI3dImg(const ImageConstPtr& inImg, unsigned long offsetX, unsigned long offsetY, unsigned long offsetZ,
                     unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ)
{
    return processor::runForOutput<GetROI3dImgLvl1, attr::OutImg>(
        processor::with<attr::InImg3d>(inImg),
        processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(offsetX, offsetY, offsetZ)),
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(sizeX, sizeY, sizeZ)));
}

void getROI3dImg(const ImageConstPtr& inImg, unsigned long offsetX, unsigned long offsetY, unsigned long offsetZ,
                 unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, const ImagePtr& outImg)
{
    const auto offset = makeItem<attr::Img3dOffset>(offsetX, offsetY, offsetZ);
    const auto size = makeItem<attr::Img3dSize>(sizeX, sizeY, sizeZ);
    if (!processor::runStraight<GetROI3dImgLvl1>(processor::with<attr::InImg3d>(inImg),
                                                 processor::with<attr::InInputImg3dOffset>(processor::borrowed(offset)),
                                                 processor::with<attr::InOutputImg3dSize>(processor::borrowed(size)),
                                                 processor::with<attr::OutImg>(outImg))) {
        processor::run<GetROI3dImgLvl1>(
            processor::with<attr::InImg3d>(inImg),
            processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(offsetX, offsetY, offsetZ)),
            processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(sizeX, sizeY, sizeZ)),
            processor::with<attr::OutImg>(outImg));
    }
}

boost::shared_ptr<GetROI3dImgLvl1> getROI3dImg_async(const ImageConstPtr& inImg, unsigned long offsetX,
                                                     unsigned long offsetY, unsigned long offsetZ, unsigned long sizeX,
                                                     unsigned long sizeY, unsigned long sizeZ)
{
    return processor::start<GetROI3dImgLvl1>(
        processor::with<attr::InImg3d>(inImg),
        processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(offsetX, offsetY, offsetZ)),
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(sizeX, sizeY, sizeZ)));
}

boost::shared_ptr<GetROI3dImgLvl1> getROI3dImg_async(const ImageConstPtr& inImg, unsigned long offsetX,
                                                     unsigned long offsetY, unsigned long offsetZ, unsigned long sizeX,
                                                     unsigned long sizeY, unsigned long sizeZ, const ImagePtr& outImg)
{
    return processor::start<GetROI3dImgLvl1>(
        processor::with<attr::InImg3d>(inImg),
        processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(offsetX, offsetY, offsetZ)),
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(sizeX, sizeY, sizeZ)),
        processor::with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<GetROI3dImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
