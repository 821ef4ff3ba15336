#include "ORLIXIPL/ORLIXIPLUtility/Processor/HostPixels.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"

namespace orlix::imaproc::util {

processor::StepResult checkHostPixels(const BaseImageAttribute& attribute)
{
    const image::BaseImage& image = attribute.getImage();
    if (image.getPixelLayout().first != nullptr || image.getGeometry().getNbPixels() == 0) {
        return processor::StepResult::success();
    }
    return processor::StepResult::failed(formatMessage<eRuleMessage>(
        eRuleMessage::eNoHostPixels, attribute.getObjectName(), image.getGeometry().toString()));
}

} // namespace orlix::imaproc::util
