#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuLevel.h"

#include "ORLIX/ORLIXCore/ComputerInfoPool.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eImageSplitMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(id, args...));
}

} // namespace

ProcessingResult<bool> findCommonDevice(std::initializer_list<const BaseImageAttribute*> attributes, int& device)
{
    const BaseImageAttribute* first = nullptr;
    for (const BaseImageAttribute* const attribute : attributes) {
        if (attribute == nullptr) {
            continue;
        }
        const image::BaseImage& held = attribute->getImage();
        const auto* const image = dynamic_cast<const image::CudaImage*>(&held);
        if (image == nullptr) {
            return failure(eImageSplitMessage::eNotOnDevice, attribute->getObjectName(), held.getGeometry().toString());
        }
        if (first == nullptr) {
            first = attribute;
            device = image->getDeviceIndex();
        } else if (image->getDeviceIndex() != device) {
            return failure(eImageSplitMessage::eDevicesDiffer, first->getObjectName(), device,
                           attribute->getObjectName(), image->getDeviceIndex());
        }
    }
    return true;
}

gpu::LauncherInfo makeLauncherInfo(const image::BaseImage& image, int device)
{
    gpu::LauncherInfo info{};
    info.sizeX = image.getSizeX();
    info.sizeY = image.getSizeY();
    info.sizeZ = image.getSizeZ();
    info.sizeC = image.getSizeC();
    info.sizeT = image.getSizeT();
    const hard::GpuDescription& gpu =
        core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
    info.nbMultiProcessors = gpu.getNbMultiProcessors(device);
    info.maxThreadsPerMultiProcessor = gpu.getMaxThreadsPerMultiProcessor(device);
    info.maxThreadsPerBlock = gpu.getMaxThreadsPerBlock(device);
    info.blockSize2d = gpu.getBlockSize2d(device);
    return info;
}

} // namespace orlix::imaproc
