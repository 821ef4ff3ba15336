#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"

namespace orlix::imaproc::util {

ImagePtr copyImg(const ImageConstPtr& inImg)
{
    return processor::runForOutput<CopyImgLvl1, attr::OutImg>(processor::with<attr::InImg>(inImg));
}

void copyImg(const ImageConstPtr& inImg, const ImagePtr& outImg)
{
    processor::run<CopyImgLvl1>(processor::with<attr::InImg>(inImg), processor::with<attr::OutImg>(outImg));
}

boost::shared_ptr<CopyImgLvl1> copyImg_async(const ImageConstPtr& inImg)
{
    return processor::start<CopyImgLvl1>(processor::with<attr::InImg>(inImg));
}

boost::shared_ptr<CopyImgLvl1> copyImg_async(const ImageConstPtr& inImg, const ImagePtr& outImg)
{
    return processor::start<CopyImgLvl1>(processor::with<attr::InImg>(inImg), processor::with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<CopyImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
