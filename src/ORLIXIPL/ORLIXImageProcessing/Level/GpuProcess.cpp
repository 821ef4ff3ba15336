#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuProcess.h"

#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

namespace orlix::imaproc {

namespace {

/// Null for an attribute that carries something else.
const BaseImageAttribute* asImageAttribute(const processor::BaseAttribute& attribute)
{
    if (attribute.getAttributeType() != processor::eAttributeType::eImageProcessingAttribute) {
        return nullptr;
    }
    const auto& imageProcessing = static_cast<const BaseImageProcessingAttribute&>(attribute);
    return imageProcessing.getImageProcessingAttributeType() == eImageProcessingAttributeType::eImageAttribute
               ? static_cast<const BaseImageAttribute*>(&imageProcessing)
               : nullptr;
}

} // namespace

bool areImagesOnDevice(const processor::BaseProcessor& level)
{
    bool bAllOnDevice = true;
    for (const std::string& name : level.getAttributeNameColl()) {
        const processor::BaseAttribute& attribute = level.getAttribute(name);
        const BaseImageAttribute* const image = attribute.isHeld() ? asImageAttribute(attribute) : nullptr;
        bAllOnDevice = bAllOnDevice && (image == nullptr || image->getImage().isGpuImage());
    }
    return bAllOnDevice;
}

} // namespace orlix::imaproc
