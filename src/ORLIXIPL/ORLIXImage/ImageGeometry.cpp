// Checked sizes and the text form of a geometry.
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <initializer_list>

namespace orlix::image {

namespace {

// 0 where any size is 0, however large the others are.
unsigned long checkedProduct(std::initializer_list<unsigned long> sizes, const BaseImageGeometry& geometry)
{
    if (std::ranges::find(sizes, 0ul) != sizes.end()) {
        return 0;
    }
    unsigned long product = 1;
    for (const unsigned long size : sizes) {
        if (__builtin_mul_overflow(product, size, &product)) {
            raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eSizeOverflow, geometry.toString());
        }
    }
    return product;
}

VolumeGeometry volumeOf(unsigned long sizeZ)
{
    VolumeGeometry volume;
    if (sizeZ != 1) {
        volume.init3d(sizeZ);
    }
    return volume;
}

} // namespace

BaseImageGeometry::BaseImageGeometry(const std::vector<eImageBufferType>& types, unsigned long sizeX,
                                     unsigned long sizeY, const VolumeGeometry& volume, const ColorGeometry& color,
                                     const TemporalGeometry& temporal)
    : BaseImageGeometry(types.empty() ? eImageBufferType() : types.front(), sizeX, sizeY, volume, color, temporal)
{
    if (types.size() != temporal.getSizeT()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eTypeCountMismatch, temporal.getSizeT(),
                                  types.size());
    }
    if (std::ranges::any_of(types, [&](const eImageBufferType& type) { return type != types.front(); })) {
        m_types = boost::make_shared<const std::vector<eImageBufferType>>(types);
    }
}

std::vector<eImageBufferType> BaseImageGeometry::getBufferTypeVector() const
{
    return m_types ? *m_types : std::vector<eImageBufferType>(getSizeT(), m_type);
}

unsigned long BaseImageGeometry::getNbPlans() const
{
    return checkedProduct({getSizeZ(), getSizeC(), getSizeT()}, *this);
}

unsigned long BaseImageGeometry::getNbPixels() const
{
    return checkedProduct({getSizeX(), getSizeY(), getSizeZ(), getSizeC(), getSizeT()}, *this);
}

bool BaseImageGeometry::hasSameBufferTypeVector(const BaseImageGeometry& other) const
{
    return m_types && other.m_types && (m_types == other.m_types || *m_types == *other.m_types);
}

std::string BaseImageGeometry::toString() const
{
    std::string text = std::to_string(getSizeX());
    for (const unsigned long size : {getSizeY(), getSizeZ(), getSizeC(), getSizeT()}) {
        text.append("x").append(std::to_string(size));
    }
    text.append(" ").append(getBufferTypeName(m_type));
    for (unsigned long t = 1; m_types && t < m_types->size(); ++t) {
        if ((*m_types)[t] != (*m_types)[t - 1]) {
            text.append("/").append(getBufferTypeName((*m_types)[t]));
        }
    }
    return text;
}

boost::shared_ptr<BaseImageGeometry> geometry2d(const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY)
{
    return boost::make_shared<BaseImageGeometry>(type, sizeX, sizeY, VolumeGeometry(), ColorGeometry(),
                                                 TemporalGeometry());
}

boost::shared_ptr<BaseImageGeometry> geometry3d(const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY,
                                                unsigned long sizeZ)
{
    VolumeGeometry volume;
    volume.init3d(sizeZ);
    return boost::make_shared<BaseImageGeometry>(type, sizeX, sizeY, volume, ColorGeometry(), TemporalGeometry());
}

boost::shared_ptr<BaseImageGeometry> geometry5d(const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY,
                                                unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT)
{
    ColorGeometry color;
    color.initChannels(sizeC);
    TemporalGeometry temporal;
    if (sizeT != 1) {
        temporal.initSequence(sizeT);
    }
    return boost::make_shared<BaseImageGeometry>(type, sizeX, sizeY, volumeOf(sizeZ), color, temporal);
}

} // namespace orlix::image
