// Gives every plan its entry of a collection that is indexed by plan.
#pragma once

#include "ORLIX/ORLIXBaseData/BasePlanIndexedColl.h"
#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

namespace orlix::imaproc {

/// Elements go z fastest, then c, then t, like those of a SubImageSplit by plans.
class ORLIXIMAGEPROCESSING_API BasePlanIndexedSplit : public processor::BaseStaticSplit
{
public:
    processor::eSplitStaticType getSplitStaticType() const override
    {
        return processor::eSplitStaticType::ePlanIndexedSplit;
    }
    processor::ElementDemand getElementDemand() const override { return {true, m_nbPlans, 0}; }

    /// Sizes say which plans there are, such as those of an image that is cut beside; entries of others are left out.
    /// `bMayLack` says whether a plan may have no entry: the attribute of its element then stays unset. Fails for a
    /// null collection, for one of another class than the split gives out, for more plans than can be counted, and for
    /// an entry that is missing.
    ProcessingResult<bool> initBase(const boost::shared_ptr<BasePlanIndexedColl>& coll, unsigned long sizeZ,
                                    unsigned long sizeC, unsigned long sizeT, bool bMayLack);

protected:
    /// Holds `coll`; false where it is of another class.
    virtual bool holdColl(const boost::shared_ptr<BasePlanIndexedColl>& coll) = 0;
    /// Fails for a null collection, for more plans than can be counted, and for a missing entry unless `bMayLack`.
    ProcessingResult<bool> initPlans(const BasePlanIndexedColl* coll, unsigned long sizeZ, unsigned long sizeC,
                                     unsigned long sizeT, bool bMayLack);
    /// Fails outside the plans.
    ProcessingResult<bool> getPlanIndex(unsigned long element, PlanIndex& index) const;
    bool mayLack() const { return m_bMayLack; }
    ProcessingResult<bool> failLacking(const PlanIndex& index) const;

private:
    unsigned long m_sizeZ = 0;
    unsigned long m_sizeC = 0;
    unsigned long m_nbPlans = 0;
    bool m_bMayLack = false;
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`. `TColl` is a shared pointer to a PlanIndexedColl,
/// const or not, of what the attribute points to.
template <class TProcessor, class TColl, class TAttribute>
class PlanIndexedSplit final : public processor::FeedingSplit<BasePlanIndexedSplit, TProcessor, TAttribute>
{
public:
    using BasePlanIndexedSplit::initBase;
    /// The same for a collection that is known to be of the right class.
    ProcessingResult<bool> initBase(const TColl& coll, unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT,
                                    bool bMayLack)
    {
        m_coll = coll;
        return this->initPlans(coll.get(), sizeZ, sizeC, sizeT, bMayLack);
    }

    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned int element,
                                            const core::BaseRequestOrigin&) override
    {
        PlanIndex index;
        ProcessingResult<bool> result = this->getPlanIndex(element, index);
        if (!result) {
            return result;
        }
        auto item = m_coll->find(index);
        if (item) {
            this->feed(lower, std::move(item));
        } else if (!this->mayLack()) {
            return this->failLacking(index);
        }
        return true;
    }
    void clear() override { m_coll.reset(); }

protected:
    bool holdColl(const boost::shared_ptr<BasePlanIndexedColl>& coll) override
    {
        m_coll = boost::dynamic_pointer_cast<typename TColl::element_type>(coll);
        return m_coll || !coll;
    }

private:
    TColl m_coll;
};

} // namespace orlix::imaproc
