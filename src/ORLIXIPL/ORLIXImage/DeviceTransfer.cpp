// Moving images between the host and devices, plan by plan.
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPL/ORLIXImage/DeviceMemory.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/PixelBlock.h"
#include "ORLIXIPL/ORLIXImage/StepTable.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

namespace {

/// Calls `move(z, c, t)` for every plan that has pixels.
template <class TMove>
void forEachPlan(const BaseImage& image, const TMove& move)
{
    if (image.getGeometry().getNbPixels() == 0) {
        return; // there may be plans without end
    }
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                move(z, c, t);
            }
        }
    }
}

unsigned long rowBytesOf(const BaseImage& image, unsigned long t)
{
    return image.getSizeX() * elementSize(image.getBufferType(t));
}

void checkHostPixels(const BaseImage& image)
{
    if (!image.getPixelLayout().first) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoHostPixels, image.getGeometry().toString());
    }
}

void checkMoved(const gpu::CudaResult& result, const BaseImage& image, eORLIXImageMessage::domain message, int device)
{
    if (!result.bSuccess) {
        raise<eORLIXImageMessage>(ORLIX_HERE, message, image.getGeometry().toString(), device, result.message);
    }
}

/// The rows of a plan of the host, one behind the other.
void gatherRows(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t, std::byte* rows)
{
    const unsigned long elementBytes = elementSize(image.getBufferType(t));
    const StepLayout step = stepOf(image.getPixelLayout(), t);
    copyBlock(rows, {static_cast<long>(elementBytes), static_cast<long>(rowBytesOf(image, t)), 0},
              image.accessRow(0, z, c, t), {step.pixelStride * static_cast<long>(elementBytes), step.rowBytes, 0},
              {image.getSizeX(), image.getSizeY(), 1}, elementBytes);
}

void upload(const BaseImage& from, const CudaImage& to, hard::GpuLayer& layer)
{
    checkHostPixels(from);
    ImagePtr gathered; // a plan, where pixels or rows have gaps
    forEachPlan(from, [&](unsigned long z, unsigned long c, unsigned long t) {
        const std::byte* rows = from.accessRow(0, z, c, t);
        if (!stepOf(from.getPixelLayout(), t).bDense) {
            if (!gathered || gathered->getBufferType() != from.getBufferType(t)) {
                gathered = createImage(planGeometry(from, t));
            }
            gatherRows(from, z, c, t, gathered->accessRow(0, 0, 0, 0));
            rows = gathered->accessRow(0, 0, 0, 0);
        }
        checkMoved(layer.upload(to.getPlanAddress(z, c, t), rows, rowBytesOf(from, t) * from.getSizeY()), from,
                   eORLIXImageMessage::eNotMovedToGpu, to.getDeviceIndex());
    });
}

void copyOnDevices(const CudaImage& from, const CudaImage& to, hard::GpuLayer& layer)
{
    forEachPlan(from, [&](unsigned long z, unsigned long c, unsigned long t) {
        checkMoved(
            layer.copy(to.getPlanAddress(z, c, t), from.getPlanAddress(z, c, t), rowBytesOf(from, t) * from.getSizeY()),
            from, eORLIXImageMessage::eNotMovedToGpu, to.getDeviceIndex());
    });
}

void download(const CudaImage& from, const BaseImage& to, hard::GpuLayer& layer)
{
    forEachPlan(from, [&](unsigned long z, unsigned long c, unsigned long t) {
        checkMoved(layer.download(to.accessRow(0, z, c, t), from.getPlanAddress(z, c, t),
                                  rowBytesOf(from, t) * from.getSizeY()),
                   from, eORLIXImageMessage::eNotMovedFromGpu, from.getDeviceIndex());
    });
}

void copyOnHost(const BaseImage& from, const BaseImage& to)
{
    checkHostPixels(from);
    forEachPlan(from, [&](unsigned long z, unsigned long c, unsigned long t) {
        gatherRows(from, z, c, t, to.accessRow(0, z, c, t));
    });
}

} // namespace

ImagePtr toDevice(const BaseImage& image, int device)
{
    const boost::shared_ptr<CudaImage> moved = boost::make_shared<CudaImage>(image.getGeometry(), device);
    if (const auto* const onDevice = dynamic_cast<const CudaImage*>(&image)) {
        copyOnDevices(*onDevice, *moved, moved->m_memory->getLayer());
    } else {
        upload(image, *moved, moved->m_memory->getLayer());
    }
    moved->setGeometricCalibration(image.getGeometricCalibration());
    return moved;
}

ImagePtr toHost(const BaseImage& image)
{
    const ImagePtr moved = createImage(image.getGeometry());
    if (const auto* const onDevice = dynamic_cast<const CudaImage*>(&image)) {
        onDevice->m_memory->select();
        download(*onDevice, *moved, onDevice->m_memory->getLayer());
    } else {
        copyOnHost(image, *moved);
    }
    moved->setGeometricCalibration(image.getGeometricCalibration());
    return moved;
}

} // namespace orlix::image
