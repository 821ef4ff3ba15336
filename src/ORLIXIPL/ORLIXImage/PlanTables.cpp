// Making tables of plans, and counting who holds them.
#include "ORLIXIPL/ORLIXImage/PlanTables.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/DeviceMemory.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"

namespace orlix::image {

/// The tables of all images by address: on the host an address is all that is known of a table.
class HeldTables
{
public:
    using Holds = std::shared_ptr<std::atomic<unsigned long>>;

    static const std::shared_ptr<HeldTables>& access()
    {
        static const std::shared_ptr<HeldTables> g_tables = std::make_shared<HeldTables>();
        return g_tables;
    }

    void enter(const void* table, unsigned long bytes, const Holds& holds)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_tables[static_cast<const std::byte*>(table)] = {bytes, holds};
    }
    void remove(const void* table)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_tables.erase(static_cast<const std::byte*>(table));
    }
    void drop(const void* table)
    {
        const auto* const place = static_cast<const std::byte*>(table);
        const std::lock_guard<std::mutex> lock(m_mutex);
        auto found = m_tables.upper_bound(place);
        if (found == m_tables.begin()) {
            return;
        }
        --found;
        const Table& known = found->second;
        const bool bWithin = static_cast<unsigned long>(place - found->first) < known.bytes;
        if (bWithin && *known.holds > 0) {
            --*known.holds;
        }
    }

private:
    struct Table
    {
        unsigned long bytes;
        Holds holds;
    };

    std::mutex m_mutex;
    std::map<const std::byte*, Table> m_tables;
};

namespace {

bool followOneAnother(const PlanRange& range, const BaseImageGeometry& all)
{
    const bool bWholeVolumes = range.sizeZ == all.getSizeZ();
    const bool bWholeSteps = bWholeVolumes && range.sizeC == all.getSizeC();
    return (bWholeVolumes || range.sizeC == 1) && (bWholeSteps || range.sizeT == 1);
}

std::vector<const std::byte*> addressesOf(const DeviceMemory& memory, const PlanRange& range)
{
    std::vector<const std::byte*> addresses;
    addresses.reserve(range.sizeZ * range.sizeC * range.sizeT);
    for (unsigned long t = range.t; t < range.t + range.sizeT; ++t) {
        for (unsigned long c = range.c; c < range.c + range.sizeC; ++c) {
            for (unsigned long z = range.z; z < range.z + range.sizeZ; ++z) {
                addresses.push_back(memory.accessPlan(z, c, t));
            }
        }
    }
    return addresses;
}

} // namespace

PlanTables::PlanTables() : m_nbHolds(std::make_shared<std::atomic<unsigned long>>(0)), m_held(HeldTables::access()) {}

PlanTables::~PlanTables() = default;

void* PlanTables::hold(const DeviceMemory& memory, const PlanRange& range)
{
    const BaseImageGeometry& all = memory.getGeometry();
    memory.select();
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::byte* table = nullptr;
    if (followOneAnother(range, all)) {
        const unsigned long first = range.z + all.getSizeZ() * (range.c + all.getSizeC() * range.t);
        table = accessTable(memory, {0, 0, 0, all.getSizeZ(), all.getSizeC(), all.getSizeT()}) + first * sizeof(void*);
    } else {
        table = accessTable(memory, range);
    }
    ++*m_nbHolds;
    return table;
}

// The caller holds the lock.
std::byte* PlanTables::accessTable(const DeviceMemory& memory, const PlanRange& range)
{
    const Key key = {range.z, range.c, range.t, range.sizeZ, range.sizeC, range.sizeT};
    if (const auto known = m_tables.find(key); known != m_tables.end()) {
        return static_cast<std::byte*>(known->second.entries);
    }
    const std::vector<const std::byte*> addresses = addressesOf(memory, range);
    const auto made = m_tables.emplace(key, Table{nullptr, addresses.size() * sizeof(void*)}).first;
    Table& table = made->second;
    hard::GpuLayer& layer = memory.getLayer();
    gpu::CudaResult result = layer.allocate(table.bytes, table.entries);
    if (result.bSuccess) {
        result = layer.upload(table.entries, addresses.data(), table.bytes);
    }
    if (!result.bSuccess) {
        if (table.entries) {
            static_cast<void>(layer.free(table.entries)); // the failure before it is the one to tell
        }
        m_tables.erase(made);
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoPlanTable, memory.getGeometry().toString(),
                                  memory.getDevice(), result.message);
    }
    m_held->enter(table.entries, table.bytes, m_nbHolds);
    return static_cast<std::byte*>(table.entries);
}

void PlanTables::release(hard::GpuLayer& layer)
{
    for (const auto& [key, table] : m_tables) {
        m_held->remove(table.entries);
        static_cast<void>(layer.free(table.entries)); // nobody is left to be told
    }
    m_tables.clear();
}

void PlanTables::drop(const void* table)
{
    HeldTables::access()->drop(table);
}

} // namespace orlix::image
