// Views of an image's pixels, and when two images are views of the same ones.
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPL/ORLIXImage/FindMemoryPlace.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/PixelBytes.h"
#include "ORLIXIPL/ORLIXImage/StepTable.h"

namespace orlix::image {

namespace {

/// `TLayout` is StepLayout, or PixelLayout for step 0.
template <class TLayout>
bool isSameStep(const TLayout& a, const TLayout& b, const BaseImageGeometry& geometry)
{
    const auto sameDistance = [](unsigned long size, long distanceA, long distanceB) {
        return size <= 1 || distanceA == distanceB;
    };
    return a.first == b.first && a.pixelStride == b.pixelStride &&
           sameDistance(geometry.getSizeY(), a.rowBytes, b.rowBytes) &&
           sameDistance(geometry.getSizeZ(), a.planBytes, b.planBytes) &&
           sameDistance(geometry.getSizeC(), a.channelBytes, b.channelBytes);
}

bool isSameOnDevice(const BaseImage& a, const BaseImage& b)
{
    const auto* const onDevice = dynamic_cast<const CudaImage*>(&a);
    const auto* const otherOnDevice = dynamic_cast<const CudaImage*>(&b);
    return onDevice && otherOnDevice && onDevice->sharesDevicePixelsWith(*otherOnDevice);
}

} // namespace

BaseImage::BaseImage(const BaseImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c,
                     unsigned long t)
    : m_geometry(std::move(geometry)), m_layout(parent.m_layout), m_calibration(parent.m_calibration)
{
    m_layout.imageType = eImageType::eSubImage;
    if (!m_layout.first) {
        return; // the view of an image on a device knows where its plans are
    }
    if (m_layout.steps) {
        StepTable table;
        addSteps(table, parent.m_layout, t, getSizeT());
        for (StepLayout& step : table) {
            step.first = step.accessRow(0, z, c);
        }
        setSteps(m_layout, std::move(table));
    } else {
        m_layout.first = parent.accessRow(0, z, c, t);
    }
}

BaseImage::BaseImage(const std::vector<const BaseImage*>& parts, BaseImageGeometry geometry)
    : m_geometry(std::move(geometry)), m_layout(parts.front()->m_layout), m_calibration(parts.front()->m_calibration)
{
    m_layout.imageType = eImageType::eSubImage;
    if (m_geometry.getNbPixels() == 0) {
        return; // there is no place to tell, and there may be steps without end
    }
    StepTable table;
    for (const BaseImage* const part : parts) {
        addSteps(table, part->m_layout, 0, part->getSizeT());
    }
    m_layout.place = findMemoryPlace(pixelBytesOf(m_geometry));
    setSteps(m_layout, std::move(table));
}

BaseImage::~BaseImage() = default;

long BaseImage::pixelStrideOfStep(unsigned long t) const
{
    return (*m_layout.steps)[t].pixelStride;
}

std::byte* BaseImage::accessRowOfStep(unsigned long y, unsigned long z, unsigned long c, unsigned long t) const
{
    if (!m_layout.first) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoHostPixels, m_geometry.toString());
    }
    return (*m_layout.steps)[t].accessRow(y, z, c);
}

bool BaseImage::sharesPixelsWith(const BaseImage& other) const
{
    if (this == &other) {
        return true;
    }
    const PixelLayout& a = m_layout;
    const PixelLayout& b = other.m_layout;
    if (!a.first) {
        return isSameOnDevice(*this, other);
    }
    if (a.first != b.first || !m_geometry.hasSameSizes(other.m_geometry) ||
        !m_geometry.hasSameBufferTypes(other.m_geometry)) {
        return false;
    }
    if (!a.steps && !b.steps) {
        return isSameStep(a, b, m_geometry) && (getSizeT() <= 1 || a.stepBytes == b.stepBytes);
    }
    for (unsigned long t = 0; t < getSizeT(); ++t) {
        if (!isSameStep(stepOf(a, t), stepOf(b, t), m_geometry)) {
            return false;
        }
    }
    return true;
}

ProcessingResult<bool> BaseImage::reinitialize(const BaseImageGeometry&)
{
    return BoolResult::failure(
        formatMessage<eORLIXImageMessage>(eORLIXImageMessage::eCannotGrow, m_geometry.toString()));
}

} // namespace orlix::image
