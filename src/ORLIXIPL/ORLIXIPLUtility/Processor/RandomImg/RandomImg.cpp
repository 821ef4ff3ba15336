#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImg.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl1.h"

#include <array>

namespace orlix::imaproc::util {

using processor::with;

namespace {

using RangePtr = boost::shared_ptr<const attr::Range>;

/// What RandomImgLvl1 sets where nobody set a range. Calls that give all values need no level 1 on small images, and a
/// range that is made costs as much as they do.
const RangePtr& rangeOfType(const image::eImageBufferType& type)
{
    static const auto g_ranges = [] {
        std::array<RangePtr, image::g_allBufferTypes.size() + 1> ranges;
        for (const image::eImageBufferType each : image::g_allBufferTypes) {
            ranges[static_cast<unsigned long>(each)] =
                attr::createRange(image::getMinValue(each), image::getMaxValue(each));
        }
        return ranges;
    }();
    return g_ranges[static_cast<unsigned long>(type)];
}

} // namespace

void randomImg(const ImagePtr& outImg)
{
    if (outImg) {
        randomImg(rangeOfType(outImg->getBufferType()), outImg);
    } else {
        processor::run<RandomImgLvl1>(with<attr::OutImg>(outImg));
    }
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
