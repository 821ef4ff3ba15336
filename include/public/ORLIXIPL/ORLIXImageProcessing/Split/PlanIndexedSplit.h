// Gives every plan its entry of a collection that is indexed by plan.
#pragma once

#include "ORLIX/ORLIXBaseData/BasePlanIndexedColl.h"
#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <boost/shared_ptr.hpp>

namespace orlix::imaproc {

/// Elements go z fastest, then c, then t, like those of a SubImageSplit by plans.
class ORLIXIMAGEPROCESSING_API BasePlanIndexedSplit : public processor::BaseStaticSplit
{
public:
    /// Sizes are those of the image that is cut beside. `bMayLack` says whether a plan may have no entry, whose element
    /// then gets none. Fails for a null collection, for more plans than can be counted, and for a missing entry.
    ProcessingResult<bool> initBase(const boost::shared_ptr<BasePlanIndexedColl>& coll, unsigned long sizeZ,
                                    unsigned long sizeC, unsigned long sizeT, bool bMayLack);

    processor::eSplitStaticType getSplitStaticType() const override
    {
        return processor::eSplitStaticType::ePlanIndexedSplit;
    }
    processor::ElementDemand getElementDemand() const override { return {true, m_nbPlans, 0}; }
    void clear() override { m_coll.reset(); }

protected:
    /// Fails outside the plans.
    ProcessingResult<bool> getPlanIndex(unsigned long element, PlanIndex& index) const;
    BasePlanIndexedColl& accessColl() const { return *m_coll; }
    bool mayLack() const { return m_bMayLack; }
    ProcessingResult<bool> failLacking(const PlanIndex& index) const;

private:
    boost::shared_ptr<BasePlanIndexedColl> m_coll;
    unsigned long m_sizeZ = 0;
    unsigned long m_sizeC = 0;
    unsigned long m_nbPlans = 0;
    bool m_bMayLack = false;
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`. `TColl` is a shared pointer to a PlanIndexedColl
/// of what the attribute points to; the collection given to `initBase` is one.
template <class TProcessor, class TColl, class TAttribute>
class PlanIndexedSplit final : public processor::FeedingSplit<BasePlanIndexedSplit, TProcessor, TAttribute>
{
public:
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned int element,
                                            const core::BaseRequestOrigin&) override
    {
        PlanIndex index;
        ProcessingResult<bool> result = this->getPlanIndex(element, index);
        if (!result) {
            return result;
        }
        auto item = static_cast<typename TColl::element_type&>(this->accessColl()).find(index);
        if (item) {
            this->feed(lower, std::move(item));
        } else if (!this->mayLack()) {
            return this->failLacking(index);
        }
        return true;
    }
};

} // namespace orlix::imaproc
