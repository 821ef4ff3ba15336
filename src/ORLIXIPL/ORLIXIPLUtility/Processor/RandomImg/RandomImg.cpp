#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImg.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl1.h"

namespace orlix::imaproc::util {

using processor::with;

void randomImg(const ImagePtr& outImg)
{
    processor::run<RandomImgLvl1>(with<attr::OutImg>(outImg));
}

void randomImg(const boost::shared_ptr<const attr::Range>& range, const ImagePtr& outImg)
{
    processor::run<RandomImgLvl1>(with<attr::OutImg>(outImg), with<attr::InOptOutputRange>(range));
}

void randomImg(const ImagePtr& outImg, const ImagePart& part)
{
    runRandomPart<RandomImgLvl1>(part, outImg, with<attr::OutImg>(outImg));
}

void randomImg(const boost::shared_ptr<const attr::Range>& range, const ImagePtr& outImg, const ImagePart& part)
{
    runRandomPart<RandomImgLvl1>(part, outImg, with<attr::OutImg>(outImg), with<attr::InOptOutputRange>(range));
}

boost::shared_ptr<RandomImgLvl1> randomImg_async(const ImagePtr& outImg)
{
    return startRandom<RandomImgLvl1>(with<attr::OutImg>(outImg));
}

boost::shared_ptr<RandomImgLvl1> randomImg_async(const boost::shared_ptr<const attr::Range>& range,
                                                 const ImagePtr& outImg)
{
    return startRandom<RandomImgLvl1>(with<attr::OutImg>(outImg), with<attr::InOptOutputRange>(range));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<RandomImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
