// Images on a device and views of them.
#include "ORLIXIPL/ORLIXImage/CudaImage.h"

#include "ORLIXIPL/ORLIXImage/DeviceMemory.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/StepTable.h"

#include <boost/make_shared.hpp>

namespace orlix::image {

namespace {

/// What leads every access to a row to the place that refuses it.
const boost::shared_ptr<const StepTable>& noHostSteps()
{
    static const boost::shared_ptr<const StepTable> g_steps = boost::make_shared<const StepTable>();
    return g_steps;
}

long rowBytesOf(const BaseImageGeometry& geometry)
{
    return static_cast<long>(geometry.getSizeX() * elementSize(geometry.getBufferType()));
}

PixelLayout layoutOf(const BaseImageGeometry& geometry, const boost::shared_ptr<DeviceMemory>& memory)
{
    PixelLayout layout;
    layout.rowBytes = rowBytesOf(geometry);
    layout.owner = memory;
    layout.steps = noHostSteps();
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

CudaImage::CudaImage(const std::vector<const CudaImage*>& parts, BaseImageGeometry geometry)
    : BaseImage(*parts.front(), std::move(geometry), 0, 0, 0)
{
    std::vector<DevicePart> places;
    unsigned long nbSteps = 0;
    for (const CudaImage* const part : parts) {
        const Origin& origin = part->m_origin;
        places.push_back({nbSteps, part->m_memory, origin.z, origin.c, origin.t});
        nbSteps += part->getSizeT();
    }
    m_memory = boost::make_shared<DeviceMemory>(getGeometry(), std::move(places));
}

CudaImage::~CudaImage() = default;

ProcessingResult<bool> CudaImage::reinitialize(const BaseImageGeometry&)
{
    return BoolResult::failure(
        formatMessage<eORLIXImageMessage>(eORLIXImageMessage::eCannotGrowOnGpu, getGeometry().toString()));
}

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
    if (!getGeometry().hasSameSizes(other.getGeometry()) || !getGeometry().hasSameBufferTypes(other.getGeometry())) {
        return false;
    }
    if (m_memory == other.m_memory && m_origin == other.m_origin) {
        return true;
    }
    // Joined sequences show plans of other memory.
    return getGeometry().getNbPixels() > 0 && &m_memory->getLayer() == &other.m_memory->getLayer() &&
           getDeviceIndex() == other.getDeviceIndex() && hasPlansOf(other);
}

bool CudaImage::hasPlansOf(const CudaImage& other) const
{
    for (unsigned long t = 0; t < getSizeT(); ++t) {
        for (unsigned long c = 0; c < getSizeC(); ++c) {
            for (unsigned long z = 0; z < getSizeZ(); ++z) {
                if (getPlanAddress(z, c, t) != other.getPlanAddress(z, c, t)) {
                    return false;
                }
            }
        }
    }
    return true;
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

ImagePtr createImageBeside(const BaseImage& image, const BaseImageGeometry& geometry)
{
    const bool bOnHost = image.getPixelLayout().first != nullptr;
    const auto* const onDevice = bOnHost ? nullptr : dynamic_cast<const CudaImage*>(&image);
    return onDevice ? createCudaImage(geometry, onDevice->getDeviceIndex()) : createImage(geometry);
}

} // namespace orlix::image
