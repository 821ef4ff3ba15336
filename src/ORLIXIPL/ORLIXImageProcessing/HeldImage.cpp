#include "ORLIXIPL/ORLIXImageProcessing/HeldImage.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

ImageConstPtr imageHeldBy(const boost::weak_ptr<const BaseImageAttribute>& attribute)
{
    const boost::shared_ptr<const BaseImageAttribute> held = attribute.lock();
    return held ? held->getImagePtr() : ImageConstPtr();
}

const image::BaseImage& requireImage(const ImageConstPtr& image)
{
    if (!image) {
        raise<eImageRuleMessage>(ORLIX_HERE, eImageRuleMessage::ePropertyWithoutInput);
    }
    return *image;
}

} // namespace orlix::imaproc
