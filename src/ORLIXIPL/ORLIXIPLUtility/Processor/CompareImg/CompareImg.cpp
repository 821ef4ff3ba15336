#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"

namespace orlix::imaproc::util {

boost::shared_ptr<attr::CompareResult> compareImg(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2)
{
    return processor::runForOutput<CompareImgLvl1, attr::OutCompareResult>(processor::with<attr::InImg1>(inImg1),
                                                                           processor::with<attr::InImg2>(inImg2));
}

boost::shared_ptr<attr::CompareResult>
compareImg(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2,
           const boost::shared_ptr<const attr::ImgComparisonTolerance>& tolerance)
{
    return processor::runForOutput<CompareImgLvl1, attr::OutCompareResult>(
        processor::with<attr::InImg1>(inImg1), processor::with<attr::InImg2>(inImg2),
        processor::with<attr::InOptImgComparisonTolerance>(tolerance));
}

boost::shared_ptr<CompareImgLvl1> compareImg_async(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2)
{
    return processor::start<CompareImgLvl1>(processor::with<attr::InImg1>(inImg1),
                                            processor::with<attr::InImg2>(inImg2));
}

boost::shared_ptr<CompareImgLvl1>
compareImg_async(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2,
                 const boost::shared_ptr<const attr::ImgComparisonTolerance>& tolerance)
{
    return processor::start<CompareImgLvl1>(processor::with<attr::InImg1>(inImg1),
                                            processor::with<attr::InImg2>(inImg2),
                                            processor::with<attr::InOptImgComparisonTolerance>(tolerance));
}

boost::shared_ptr<attr::CompareResult> getAsyncProcessorOutput(boost::shared_ptr<CompareImgLvl1> processor)
{
    return processor::outputOf<attr::OutCompareResult>(processor);
}

} // namespace orlix::imaproc::util
