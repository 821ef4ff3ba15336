#include "ORLIXIPL/ORLIXImageProcessing/Level/HostImages.h"

#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

ProcessingResult<bool> details::refuseDeviceImage(const char* name, const image::BaseImage& image)
{
    return ProcessingResult<bool>::failure(
        formatMessage<eImageSplitMessage>(eImageSplitMessage::eNotOnHost, name, image.getGeometry().toString()));
}

} // namespace orlix::imaproc
