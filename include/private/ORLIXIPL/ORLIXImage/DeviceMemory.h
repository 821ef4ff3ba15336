// The device memory of an image, with what devices need to find its plans.
#pragma once

#include "ORLIX/ORLIXHardware/GpuLayer.h"
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"
#include "ORLIXIPL/ORLIXImage/PlanTables.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <vector>

namespace orlix::image {

/// Boundary in bytes on which every plan starts.
inline constexpr unsigned long g_devicePlanAlignment = 256;

/// Where a time step lies in its block.
struct DeviceStep
{
    unsigned long offset;    ///< of its first plan, in bytes
    unsigned long planBytes; ///< from a plan to the next
};

class DeviceMemory;

/// Steps of another image, as part of a sequence that is joined of several.
struct DevicePart
{
    unsigned long firstStep; ///< in the sequence
    boost::shared_ptr<DeviceMemory> memory;
    unsigned long z, c, t; ///< the first plan there
};

/// One block for all plans of a geometry, z first, then c, then t, that is given back when this ends; or
/// the blocks of others, whose steps follow one another. All functions may be called from every thread.
class DeviceMemory
{
public:
    /// Throws ORLIXImageException as `createCudaImage` does.
    DeviceMemory(const BaseImageGeometry& geometry, int device);
    /// The steps of one part or more, all of one device.
    DeviceMemory(const BaseImageGeometry& geometry, std::vector<DevicePart> parts);
    DeviceMemory(const DeviceMemory&) = delete;
    DeviceMemory& operator=(const DeviceMemory&) = delete;
    ~DeviceMemory();

    hard::GpuLayer& getLayer() const { return m_layer; }
    int getDevice() const { return m_device; }
    const BaseImageGeometry& getGeometry() const { return m_geometry; }
    /// Selects the device for the calling thread. Throws ORLIXImageException with the text of the layer.
    void select() const;

    /// No bounds are checked; null where there are no pixels.
    std::byte* accessPlan(unsigned long z, unsigned long c, unsigned long t) const;
    /// The table of the plans in `range`, held once more. Throws ORLIXImageException where it can't be made.
    void* holdTable(const PlanRange& range) { return m_tables.hold(*this, range); }
    unsigned long getNbTableHolds() const { return m_tables.getNbHolds(); }

private:
    const BaseImageGeometry m_geometry;
    hard::GpuLayer& m_layer;
    const int m_device;
    std::vector<DeviceStep> m_steps; ///< one where all are of one type, none without pixels
    std::byte* m_block = nullptr;
    std::vector<DevicePart> m_parts; ///< none where there is a block
    PlanTables m_tables;
};

} // namespace orlix::image
