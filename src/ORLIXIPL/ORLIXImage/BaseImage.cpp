// Views of an image's pixels, and when two images are views of the same ones.
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

namespace {

// The steps from t on, as offsets from their own first element.
boost::shared_ptr<const std::vector<unsigned long>> shiftedOffsets(const std::vector<unsigned long>& offsets,
                                                                   unsigned long t, unsigned long sizeT)
{
    auto shifted = boost::make_shared<std::vector<unsigned long>>(offsets.begin() + static_cast<long>(t),
                                                                  offsets.begin() + static_cast<long>(t + sizeT));
    for (unsigned long& offset : *shifted) {
        offset -= offsets[t];
    }
    return shifted;
}

} // namespace

BaseImage::BaseImage(const BaseImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c,
                     unsigned long t)
    : m_geometry(std::move(geometry)), m_layout(parent.m_layout), m_calibration(parent.m_calibration)
{
    m_layout.imageType = eImageType::eSubImage;
    if (m_layout.first) {
        m_layout.first = parent.accessRow(0, z, c, t);
    }
    if (m_layout.stepOffsets) {
        viewSteps(parent.m_layout, elementSize(parent.getBufferType()), t);
    }
}

BaseImage::~BaseImage() = default;

void BaseImage::viewSteps(const PixelLayout& parent, unsigned long parentElementSize, unsigned long t)
{
    const unsigned long size = elementSize(getBufferType());
    m_layout.rowBytes = parent.rowBytes / parentElementSize * size;
    m_layout.planBytes = parent.planBytes / parentElementSize * size;
    m_layout.channelBytes = parent.channelBytes / parentElementSize * size;
    m_layout.stepOffsets = getSizeT() > 1 ? shiftedOffsets(*parent.stepOffsets, t, getSizeT()) : nullptr;
}

std::byte* BaseImage::accessRowOfStep(unsigned long y, unsigned long z, unsigned long c, unsigned long t) const
{
    const unsigned long bytes = y * m_layout.rowBytes + z * m_layout.planBytes + c * m_layout.channelBytes;
    return m_layout.first + (*m_layout.stepOffsets)[t] +
           bytes / elementSize(getBufferType()) * elementSize(getBufferType(t));
}

bool BaseImage::sharesPixelsWith(const BaseImage& other) const
{
    if (this == &other) {
        return true;
    }
    const PixelLayout& a = m_layout;
    const PixelLayout& b = other.m_layout;
    if (!a.first || a.first != b.first || !m_geometry.hasSameSizes(other.m_geometry) ||
        !m_geometry.hasSameBufferTypes(other.m_geometry)) {
        return false;
    }
    const auto sameDistance = [](unsigned long size, unsigned long distanceA, unsigned long distanceB) {
        return size <= 1 || distanceA == distanceB;
    };
    if (!sameDistance(getSizeY(), a.rowBytes, b.rowBytes) || !sameDistance(getSizeZ(), a.planBytes, b.planBytes) ||
        !sameDistance(getSizeC(), a.channelBytes, b.channelBytes)) {
        return false;
    }
    for (unsigned long t = 1; t < getSizeT() && (a.stepOffsets || b.stepOffsets); ++t) {
        if (accessRow(0, 0, 0, t) != other.accessRow(0, 0, 0, t)) {
            return false;
        }
    }
    return a.stepOffsets || b.stepOffsets || sameDistance(getSizeT(), a.stepBytes, b.stepBytes);
}

} // namespace orlix::image
