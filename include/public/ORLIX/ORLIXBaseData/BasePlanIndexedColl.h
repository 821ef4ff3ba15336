// Entries for the plans of an image, whatever the entries are.
#pragma once

#include "ORLIX/ORLIXBaseData/BaseDataItem.h"
#include "ORLIX/ORLIXBaseData/PlanIndex.h"

#include <map>
#include <vector>

namespace orlix {

/// Keeps the order in which plans were inserted, finds an entry by its plan, and knows how many plans there are along
/// each axis.
class ORLIXBASEDATA_API BasePlanIndexedColl : public BaseDataItem
{
public:
    ~BasePlanIndexedColl() override;

    unsigned long size() const { return m_order.size(); }
    /// The plan of entry `position`, counted from 0 in order of insertion; raises ORLIXBaseDataException past the end.
    const PlanIndex& getPlanIndex(unsigned long position) const;
    bool contains(const PlanIndex& index) const { return m_positions.count(index) != 0; }

    /// One more than the largest index of an entry on that axis, or what `initPlanIndexed` gave if that is more.
    unsigned long getMaxSizeZ() const { return m_maxSizes.z; }
    unsigned long getMaxSizeC() const { return m_maxSizes.c; }
    unsigned long getMaxSizeT() const { return m_maxSizes.t; }

    /// Replaces everything by a fresh entry for each plan, z fastest, then c, then t. A size may be 0. Raises
    /// ORLIXBaseDataException if there are more plans than a collection can hold, and changes nothing then.
    virtual void initPlanIndexed(unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT) = 0;

protected:
    BasePlanIndexedColl() = default;
    BasePlanIndexedColl(const BasePlanIndexedColl&) = default;
    BasePlanIndexedColl& operator=(const BasePlanIndexedColl&) = default;

    /// Appends; raises ORLIXBaseDataException if the plan has an entry or can't be counted.
    void addIndex(const PlanIndex& index);
    /// Would `addIndex` succeed for all of these, one after the other, on an empty collection of so many items?
    static ProcessingResult<bool> checkOrder(const std::vector<PlanIndex>& order, unsigned long nbItems);
    /// Position of the plan's entry, `size()` if it has none.
    unsigned long findPosition(const PlanIndex& index) const;

    const PlanIndex& getMaxSizes() const { return m_maxSizes; }
    /// Raises the sizes along each axis to at least these.
    void growMaxSizes(const PlanIndex& sizes);
    const std::vector<PlanIndex>& getOrder() const { return m_order; }
    /// Product of the sizes; raises ORLIXBaseDataException if it is above `limit`.
    static unsigned long countPlans(const PlanIndex& sizes, unsigned long limit);

private:
    std::vector<PlanIndex> m_order;
    std::map<PlanIndex, unsigned long> m_positions;
    PlanIndex m_maxSizes; ///< sizes, not indices
};

} // namespace orlix
