// The block of device memory that an image lies in.
#include "ORLIXIPL/ORLIXImage/DeviceMemory.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/CheckedArithmetic.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"

#include <algorithm>
#include <iterator>

namespace orlix::image {

namespace {

bool hasPlans(const BaseImageGeometry& geometry)
{
    return geometry.getSizeX() > 0 && geometry.getSizeY() > 0 && geometry.getSizeZ() > 0 && geometry.getSizeC() > 0 &&
           geometry.getSizeT() > 0;
}

// Steps of one type, which may be without end where there are no pixels, count as one.
unsigned long nbKindsOfStep(const BaseImageGeometry& geometry)
{
    return geometry.hasUniformBufferType() ? std::min(geometry.getSizeT(), 1UL) : geometry.getSizeT();
}

void checkTypes(const BaseImageGeometry& geometry)
{
    for (unsigned long t = 0; t < nbKindsOfStep(geometry); ++t) {
        if (elementSize(geometry.getBufferType(t)) == 0) {
            raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoBufferType, geometry.toString());
        }
    }
}

// Fills `steps` and gives the bytes of all.
unsigned long layOut(const BaseImageGeometry& geometry, std::vector<DeviceStep>& steps)
{
    const CheckedSize planElements = CheckedSize(geometry.getSizeX()) * geometry.getSizeY();
    const CheckedSize nbPlans = CheckedSize(geometry.getSizeZ()) * geometry.getSizeC();
    CheckedSize bytes = 0;
    for (unsigned long t = 0; t < nbKindsOfStep(geometry); ++t) {
        const CheckedSize planBytes =
            roundedUp(planElements * elementSize(geometry.getBufferType(t)), g_devicePlanAlignment);
        steps.push_back({bytes.getValue(), planBytes.getValue()});
        bytes = bytes + planBytes * nbPlans * (geometry.hasUniformBufferType() ? geometry.getSizeT() : 1);
    }
    if (!bytes.isValid()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eSizeOverflow, geometry.toString());
    }
    return bytes.getValue();
}

} // namespace

DeviceMemory::DeviceMemory(const BaseImageGeometry& geometry, int device)
    : m_geometry(geometry), m_layer(hard::accessGpuLayer()), m_device(device)
{
    checkTypes(geometry);
    select();
    if (!hasPlans(geometry)) {
        return;
    }
    const unsigned long bytes = layOut(geometry, m_steps);
    void* block = nullptr;
    if (const gpu::CudaResult result = m_layer.allocate(bytes, block); !result.bSuccess) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eOutOfGpuMemory, geometry.toString(), bytes, device,
                                  result.message);
    }
    m_block = static_cast<std::byte*>(block);
}

DeviceMemory::DeviceMemory(const BaseImageGeometry& geometry, std::vector<DevicePart> parts)
    : m_geometry(geometry), m_layer(parts.front().memory->m_layer), m_device(parts.front().memory->m_device),
      m_parts(std::move(parts))
{}

// Nobody is left to be told of a failure.
DeviceMemory::~DeviceMemory()
{
    if (m_block || !m_parts.empty()) {
        static_cast<void>(m_layer.selectDevice(m_device));
        m_tables.release(m_layer);
        static_cast<void>(m_layer.free(m_block)); // null is nothing to free
    }
}

void DeviceMemory::select() const
{
    if (const gpu::CudaResult result = m_layer.selectDevice(m_device); !result.bSuccess) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eGpuNotUsable, m_device, m_geometry.toString(),
                                  result.message);
    }
}

std::byte* DeviceMemory::accessPlan(unsigned long z, unsigned long c, unsigned long t) const
{
    if (!m_parts.empty()) {
        const auto behind = std::ranges::upper_bound(m_parts, t, {}, &DevicePart::firstStep);
        const DevicePart& part = *std::prev(behind);
        return part.memory->accessPlan(part.z + z, part.c + c, part.t + t - part.firstStep);
    }
    if (!m_block) {
        return nullptr;
    }
    const unsigned long plan = z + m_geometry.getSizeZ() * c;
    if (m_geometry.hasUniformBufferType()) {
        return m_block + (plan + m_geometry.getSizeZ() * m_geometry.getSizeC() * t) * m_steps.front().planBytes;
    }
    return m_block + m_steps[t].offset + plan * m_steps[t].planBytes;
}

} // namespace orlix::image
