#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImg.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomCall.h"

namespace orlix::imaproc::util {

using processor::with;

void gaussianRandomImg(const boost::shared_ptr<const attr::GaussianParameter>& parameter, const ImagePtr& outImg)
{
    processor::run<GaussianRandomImgLvl1>(with<attr::InGaussianParameter>(parameter), with<attr::OutImg>(outImg));
}

void gaussianRandomImg(const boost::shared_ptr<const attr::GaussianParameter>& parameter, const ImagePtr& outImg,
                       const ImagePart& part)
{
    runRandomPart<GaussianRandomImgLvl1>(part, outImg, with<attr::InGaussianParameter>(parameter),
                                         with<attr::OutImg>(outImg));
}

boost::shared_ptr<GaussianRandomImgLvl1>
gaussianRandomImg_async(const boost::shared_ptr<const attr::GaussianParameter>& parameter, const ImagePtr& outImg)
{
    return startRandom<GaussianRandomImgLvl1>(with<attr::InGaussianParameter>(parameter), with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<GaussianRandomImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
