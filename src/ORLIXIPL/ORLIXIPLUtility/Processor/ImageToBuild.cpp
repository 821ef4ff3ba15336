#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImageToBuild.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLogMessages.h"

namespace orlix::imaproc::util {

const image::BaseImage& accessImageToBuild(const ImagePtr& outImg)
{
    if (!outImg) {
        raise<eORLIXIPLUtilityMessage>(ORLIX_HERE, eORLIXIPLUtilityMessage::eOutputImageNotInitialized);
    }
    return *outImg;
}

} // namespace orlix::imaproc::util
