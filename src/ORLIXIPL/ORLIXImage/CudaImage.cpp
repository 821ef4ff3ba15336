// Images on a device and views of them.
#include "ORLIXIPL/ORLIXImage/CudaImage.h"

#include "ORLIXIPL/ORLIXImage/DeviceMemory.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

namespace {

unsigned long rowBytesOf(const BaseImageGeometry& geometry)
{
    return geometry.getSizeX() * elementSize(geometry.getBufferType());
}

PixelLayout layoutOf(const BaseImageGeometry& geometry, const boost::shared_ptr<DeviceMemory>& memory)
{
    PixelLayout layout;
    layout.rowBytes = rowBytesOf(geometry);
    layout.owner = memory;
    return layout;
}

} // namespace

CudaImage::CudaImage(const BaseImageGeometry& geometry, int device)
    : CudaImage(geometry, boost::make_shared<DeviceMemory>(geometry, device))
{}

CudaImage::CudaImage(const BaseImageGeometry& geometry, const boost::shared_ptr<DeviceMemory>& memory)
    : BaseImage(geometry, layoutOf(geometry, memory)), m_memory(memory)
{}

CudaImage::CudaImage(const CudaImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c,
                     unsigned long t)
    : BaseImage(parent, std::move(geometry), z, c, t),
      m_memory(parent.m_memory), m_origin{parent.m_origin.z + z, parent.m_origin.c + c, parent.m_origin.t + t}
{
    PixelLayout layout = getPixelLayout();
    layout.rowBytes = rowBytesOf(getGeometry());
    setGeometryAndLayout(getGeometry(), std::move(layout));
}

CudaImage::~CudaImage() = default;

int CudaImage::getDeviceIndex() const
{
    return m_memory->getDevice();
}

std::byte* CudaImage::getPlanAddress(unsigned long z, unsigned long c, unsigned long t) const
{
    return m_memory->accessPlan(m_origin.z + z, m_origin.c + c, m_origin.t + t);
}

bool CudaImage::sharesDevicePixelsWith(const CudaImage& other) const
{
    return m_memory == other.m_memory && m_origin == other.m_origin &&
           getGeometry().hasSameSizes(other.getGeometry()) && getGeometry().hasSameBufferTypes(other.getGeometry());
}

void* CudaImage::holdPlanTable() const
{
    if (getGeometry().getNbPixels() == 0) {
        return nullptr;
    }
    return m_memory->holdTable({m_origin.z, m_origin.c, m_origin.t, getSizeZ(), getSizeC(), getSizeT()});
}

void CudaImage::dropPlanTable(const void* table)
{
    PlanTables::drop(table);
}

unsigned long CudaImage::getNbPlanTableHolds() const
{
    return m_memory->getNbTableHolds();
}

ImagePtr createCudaImage(const BaseImageGeometry& geometry, int device)
{
    return boost::make_shared<CudaImage>(geometry, device);
}

} // namespace orlix::image
