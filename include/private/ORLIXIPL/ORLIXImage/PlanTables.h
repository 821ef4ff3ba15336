// Tables on a device of where the plans of an image lie there.
#pragma once

#include "ORLIX/ORLIXHardware/GpuLayer.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>

namespace orlix::image {

class DeviceMemory;
class HeldTables;

/// Plans [z, z + sizeZ) of channels [c, c + sizeC) of time steps [t, t + sizeT).
struct PlanRange
{
    unsigned long z, c, t;
    unsigned long sizeZ, sizeC, sizeT;
};

/// One table for all plans of a block of device memory, which serves all ranges whose plans follow one another in it,
/// and one for each other range that was asked for. Tables are made on first use and end with this. Kernels may keep
/// the address of one without a hold, so none ends before.
class PlanTables
{
public:
    PlanTables();
    PlanTables(const PlanTables&) = delete;
    PlanTables& operator=(const PlanTables&) = delete;
    ~PlanTables();

    /// `memory` is what this belongs to.
    void* hold(const DeviceMemory& memory, const PlanRange& range);
    unsigned long getNbHolds() const { return *m_nbHolds; }
    /// Frees all tables, on the device that the calling thread has selected.
    void release(hard::GpuLayer& layer);

    /// Drops a hold on a table of any image.
    static void drop(const void* table);

private:
    struct Table
    {
        void* entries;
        unsigned long bytes;
    };
    using Key = std::array<unsigned long, 6>;

    /// Made where it isn't there yet.
    std::byte* accessTable(const DeviceMemory& memory, const PlanRange& range);

    std::mutex m_mutex;
    std::map<Key, Table> m_tables;
    std::shared_ptr<std::atomic<unsigned long>> m_nbHolds;
    std::shared_ptr<HeldTables> m_held;
};

} // namespace orlix::image
