#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl1.h"

namespace orlix::imaproc::util {

void eraseImg(const ImagePtr& outImg)
{
    processor::run<EraseImgLvl1>(processor::with<attr::OutImg>(outImg));
}

void eraseImg(const ImagePtr& outImg, double value)
{
    processor::run<EraseImgLvl1>(processor::with<attr::OutImg>(outImg), processor::with<attr::InOptEraseValue>(value));
}

boost::shared_ptr<EraseImgLvl1> eraseImg_async(const ImagePtr& outImg)
{
    return processor::start<EraseImgLvl1>(processor::with<attr::OutImg>(outImg));
}

boost::shared_ptr<EraseImgLvl1> eraseImg_async(const ImagePtr& outImg, double value)
{
    return processor::start<EraseImgLvl1>(processor::with<attr::OutImg>(outImg),
                                          processor::with<attr::InOptEraseValue>(value));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<EraseImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
