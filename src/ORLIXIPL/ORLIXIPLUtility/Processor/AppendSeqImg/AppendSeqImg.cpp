#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImgLvl1.h"

namespace orlix::imaproc::util {

ImagePtr appendSeqImg(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2)
{
    return processor::runForOutput<AppendSeqImgLvl1, attr::OutImg>(processor::with<attr::InImg1>(inImg1),
                                                                   processor::with<attr::InImg2>(inImg2));
}

void appendSeqImg(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2, const ImagePtr& outImg)
{
    processor::run<AppendSeqImgLvl1>(processor::with<attr::InImg1>(inImg1), processor::with<attr::InImg2>(inImg2),
                                     processor::with<attr::OutImg>(outImg));
}

boost::shared_ptr<AppendSeqImgLvl1> appendSeqImg_async(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2)
{
    return processor::start<AppendSeqImgLvl1>(processor::with<attr::InImg1>(inImg1),
                                              processor::with<attr::InImg2>(inImg2));
}

boost::shared_ptr<AppendSeqImgLvl1> appendSeqImg_async(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2,
                                                       const ImagePtr& outImg)
{
    return processor::start<AppendSeqImgLvl1>(processor::with<attr::InImg1>(inImg1),
                                              processor::with<attr::InImg2>(inImg2),
                                              processor::with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<AppendSeqImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
