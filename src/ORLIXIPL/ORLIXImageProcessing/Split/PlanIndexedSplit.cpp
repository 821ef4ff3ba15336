#include "ORLIXIPL/ORLIXImageProcessing/Split/PlanIndexedSplit.h"

#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

ProcessingResult<bool> BasePlanIndexedSplit::initBase(const boost::shared_ptr<BasePlanIndexedColl>& coll,
                                                      unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT,
                                                      bool bMayLack)
{
    if (!holdColl(coll)) {
        m_nbPlans = 0;
        return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(
            eImageSplitMessage::eWrongCollection, getAttributeName(), coll->getClassName()));
    }
    return initPlans(coll.get(), sizeZ, sizeC, sizeT, bMayLack);
}

ProcessingResult<bool> BasePlanIndexedSplit::initPlans(const BasePlanIndexedColl* coll, unsigned long sizeZ,
                                                       unsigned long sizeC, unsigned long sizeT, bool bMayLack)
{
    m_nbPlans = 0;
    if (coll == nullptr) {
        return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(eImageSplitMessage::eNoCollection));
    }
    unsigned long nbPlans = 0;
    const bool bTooMany =
        __builtin_mul_overflow(sizeZ, sizeC, &nbPlans) || __builtin_mul_overflow(nbPlans, sizeT, &nbPlans);
    if (bTooMany && sizeT != 0) {
        return ProcessingResult<bool>::failure(
            formatMessage<eImageSplitMessage>(eImageSplitMessage::eTooManyPlans, sizeZ, sizeC, sizeT));
    }
    m_sizeZ = sizeZ;
    m_sizeC = sizeC;
    m_bMayLack = bMayLack;
    m_nbPlans = sizeT == 0 ? 0 : nbPlans;
    // As many entries as plans, none of them outside: then no plan lacks one.
    const bool bComplete = coll->size() == m_nbPlans && coll->getMaxSizeZ() <= sizeZ && coll->getMaxSizeC() <= sizeC &&
                           coll->getMaxSizeT() <= sizeT;
    for (unsigned long element = 0; !bMayLack && !bComplete && element < m_nbPlans; ++element) {
        PlanIndex index;
        static_cast<void>(getPlanIndex(element, index)); // it is one of the plans
        if (!coll->contains(index)) {
            m_nbPlans = 0;
            return failLacking(index);
        }
    }
    return true;
}

ProcessingResult<bool> BasePlanIndexedSplit::getPlanIndex(unsigned long element, PlanIndex& index) const
{
    if (element >= m_nbPlans) {
        return ProcessingResult<bool>::failure(
            formatMessage<eImageSplitMessage>(eImageSplitMessage::eNoSuchElement, element, m_nbPlans));
    }
    index = PlanIndex(element % m_sizeZ, element / m_sizeZ % m_sizeC, element / m_sizeZ / m_sizeC);
    return true;
}

ProcessingResult<bool> BasePlanIndexedSplit::failLacking(const PlanIndex& index) const
{
    return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(
        eImageSplitMessage::ePlanLacksEntry, getAttributeName(), index.z, index.c, index.t));
}

} // namespace orlix::imaproc
