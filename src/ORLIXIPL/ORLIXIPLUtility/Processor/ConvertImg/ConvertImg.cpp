#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl1.h"

namespace orlix::imaproc::util {

namespace {

using image::eImageBufferType;
using processor::with;

/// The type to convert to. Where there is no image the run refuses it, whatever the type.
eImageBufferType typeOf(const ImagePtr& outImg)
{
    return outImg ? outImg->getBufferType() : eImageBufferType();
}

} // namespace

ImagePtr convertImg(const ImageConstPtr& inImg, const eImageBufferType& type)
{
    return processor::runForOutput<ConvertImgLvl1, attr::OutImg>(with<attr::InImg>(inImg),
                                                                 with<attr::InConvertImageBufferType>(type));
}

void convertImg(const ImageConstPtr& inImg, const ImagePtr& outImg)
{
    processor::run<ConvertImgLvl1>(with<attr::InImg>(inImg), with<attr::InConvertImageBufferType>(typeOf(outImg)),
                                   with<attr::OutImg>(outImg));
}

boost::shared_ptr<ConvertImgLvl1> convertImg_async(const ImageConstPtr& inImg, const eImageBufferType& type)
{
    return processor::start<ConvertImgLvl1>(with<attr::InImg>(inImg), with<attr::InConvertImageBufferType>(type));
}

boost::shared_ptr<ConvertImgLvl1> convertImg_async(const ImageConstPtr& inImg, const ImagePtr& outImg)
{
    return processor::start<ConvertImgLvl1>(
        with<attr::InImg>(inImg), with<attr::InConvertImageBufferType>(typeOf(outImg)), with<attr::OutImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<ConvertImgLvl1> processor)
{
    return processor::outputOf<attr::OutImg>(processor);
}

} // namespace orlix::imaproc::util
