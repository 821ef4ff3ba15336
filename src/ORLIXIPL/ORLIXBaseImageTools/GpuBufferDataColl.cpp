// Whether an image's elements are what a kernel takes them for.
#include "ORLIXIPL/ORLIXBaseImageTools/GpuBufferDataColl.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"

namespace orlix::image::tools {

void* details::holdTable(const CudaImage& image, bool (*bTypeMatches)(const eImageBufferType&))
{
    // Steps of one type may be without end where there are no pixels.
    const unsigned long nbSteps = image.getGeometry().hasUniformBufferType() ? 1 : image.getSizeT();
    for (unsigned long t = 0; t < nbSteps; ++t) {
        if (!bTypeMatches(image.getBufferType(t))) {
            raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eStorageTypeMismatch, t,
                                      getBufferTypeName(image.getBufferType(t)), image.getGeometry().toString());
        }
    }
    return image.holdPlanTable();
}

} // namespace orlix::image::tools
