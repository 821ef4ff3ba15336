#include "ORLIX/ORLIXBaseProcessing/BaseProcessorDispatcher.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"

#include <boost/pointer_cast.hpp>

#include <algorithm>
#include <numeric>

namespace orlix::processor {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eProcessorMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eProcessorMessage>(id, args...));
}

/// Static splits take the number of an element as an `unsigned int`.
constexpr unsigned long g_mostElements = 1UL << 32;

/// Reads one count from every split that has one; they must agree. `read` is false for a split without a count.
template <class TSplit, class TRead>
ProcessingResult<bool> readCommonCount(const BaseProcessorDispatcher& dispatcher,
                                       const std::vector<boost::shared_ptr<TSplit>>& splits, const TRead& read,
                                       unsigned long& count)
{
    const TSplit* first = nullptr;
    for (const boost::shared_ptr<TSplit>& split : splits) {
        unsigned long own = 0;
        if (!read(*split, own)) {
            continue;
        }
        if (first == nullptr) {
            first = split.get();
            count = own;
        } else if (own != count) {
            return failure(eProcessorMessage::eSplitCountsDiffer, dispatcher.getProcessorName(),
                           first->getAttributeName(), count, split->getAttributeName(), own);
        }
    }
    return first != nullptr ? true : failure(eProcessorMessage::eNoSplits, dispatcher.getProcessorName());
}

/// Do all splits feed processors of this class? Asked once for a set of splits, since a dispatcher makes one class.
template <class TSplit>
ProcessingResult<bool> checkSplits(const std::vector<boost::shared_ptr<TSplit>>& splits, const BaseProcessor& lower,
                                   bool& bChecked)
{
    for (auto split = splits.begin(); !bChecked && split != splits.end(); ++split) {
        if (!(*split)->checkProcessorType(lower)) {
            return failure(eProcessorMessage::eWrongProcessor, (*split)->getAttributeName(), lower.getObjectName());
        }
    }
    bChecked = true;
    return true;
}

} // namespace

ProcessingResult<bool> BaseProcessorDispatcher::queryNextAction(const core::BaseRequestOrigin& origin,
                                                                boost::shared_ptr<core::BaseAction>& action)
{
    ++m_nbQueried;
    boost::shared_ptr<BaseProcessor> lower = takeIdle();
    if (!lower) {
        lower = createProcessor();
        if (ProcessingResult<bool> result = lower->init(eProcessorRulePolicy::eRulePolicyCheck); !result) {
            return result;
        }
    }
    lower->setPriority(m_lowerPriority);
    ProcessingResult<bool> result = initAttributes(*lower, origin);
    action = std::move(lower);
    return result;
}

void BaseProcessorDispatcher::setSize(unsigned long nbElements, unsigned long bytes)
{
    m_nbElements = nbElements;
    if (__builtin_mul_overflow(bytes, static_cast<unsigned long>(m_policy.getWeight()), &m_cost)) {
        m_cost = ~0UL;
    }
}

void BaseProcessorDispatcher::notifyDerived(boost::shared_ptr<core::BaseAction>& action, bool bSuccess)
{
    boost::shared_ptr<BaseProcessor> lower = boost::static_pointer_cast<BaseProcessor>(std::move(action));
    if (bSuccess) {
        giveBackIdle(std::move(lower));
    }
}

ProcessingResult<bool>
BaseStaticProcessorDispatcher::initBase(const core::BasePriority& priority,
                                        const std::vector<boost::shared_ptr<BaseStaticSplit>>& splits)
{
    startQueries(priority);
    if (m_splits != splits) {
        m_splits = splits;
        m_bSplitsChecked = false;
    }
    unsigned long nbElements = 0;
    unsigned long cost = 0;
    ProcessingResult<bool> result = readCommonCount(
        *this, m_splits,
        [&cost](const BaseStaticSplit& split, unsigned long& count) {
            const ElementDemand demand = split.getElementDemand();
            count = demand.nbElements;
            cost += demand.cost;
            return demand.bHasElements;
        },
        nbElements);
    if (result && nbElements > g_mostElements) {
        result = failure(eProcessorMessage::eTooManyElements, getProcessorName(), nbElements, g_mostElements);
    }
    setSize(result ? nbElements : 0, cost);
    return result;
}

ProcessingResult<bool> BaseStaticProcessorDispatcher::initAttributes(BaseProcessor& lower,
                                                                     const core::BaseRequestOrigin& origin)
{
    if (ProcessingResult<bool> result = checkSplits(m_splits, lower, m_bSplitsChecked); !result) {
        return result;
    }
    for (const boost::shared_ptr<BaseStaticSplit>& split : m_splits) {
        ProcessingResult<bool> result =
            split->processAttribute(lower, static_cast<unsigned int>(origin.getElement()), origin);
        if (!result) {
            return result;
        }
    }
    return true;
}

void BaseStaticProcessorDispatcher::clearDerived()
{
    for (const boost::shared_ptr<BaseStaticSplit>& split : m_splits) {
        split->clear();
    }
}

ProcessingResult<bool>
BaseDynamicProcessorDispatcher::initBase(const core::BasePriority& priority,
                                         const std::vector<boost::shared_ptr<BaseDynamicSplit>>& splits)
{
    startQueries(priority);
    if (m_splits != splits) {
        m_splits = splits;
        m_bSplitsChecked = false;
    }
    unsigned long widest = 1;
    unsigned long multiple = 1;
    unsigned long maxLines = ~0UL;
    unsigned long lineCost = 0;
    bool bEmptyLines = false;
    unsigned long cost = 0;
    ProcessingResult<bool> result = readCommonCount(
        *this, m_splits,
        [&](const BaseDynamicSplit& split, unsigned long& count) {
            const RangeDemand demand = split.getRangeDemand();
            cost += split.getElementsLocationInfo().getBytes();
            if (!demand.bHasLines) {
                return false;
            }
            count = demand.nbLines;
            widest = std::max(widest, demand.lineBytes);
            multiple = demand.lineMultiple == multiple ? multiple : std::lcm(multiple, demand.lineMultiple);
            maxLines = std::min(maxLines, demand.maxLines);
            lineCost += demand.lineBytes;
            bEmptyLines = bEmptyLines || demand.lineBytes == 0;
            return true;
        },
        m_nbLines);
    if (bEmptyLines) {
        m_nbLines = 0;
    }
    const ProcessorDispatchPolicy& policy = getDispatchPolicy();
    const unsigned long wanted =
        std::max(1UL, std::min(m_nbLines, policy.getStripBytes() / policy.getWeight() / widest));
    m_linesPerElement = (wanted + multiple - 1) / multiple * multiple;
    if (m_linesPerElement > maxLines) {
        m_linesPerElement = std::max(1UL, maxLines / multiple) * multiple;
    }
    const unsigned long nbElements = m_nbLines / m_linesPerElement + (m_nbLines % m_linesPerElement != 0);
    setSize(nbElements, cost + lineCost * m_nbLines);
    for (auto split = m_splits.begin(); result && split != m_splits.end(); ++split) {
        (*split)->initRanges(m_nbLines, m_linesPerElement);
    }
    return result;
}

ProcessingResult<bool> BaseDynamicProcessorDispatcher::initAttributes(BaseProcessor& lower,
                                                                      const core::BaseRequestOrigin& origin)
{
    const unsigned long start = origin.getElement() * m_linesPerElement;
    const unsigned long size = std::min(m_linesPerElement, m_nbLines - start);
    if (ProcessingResult<bool> result = checkSplits(m_splits, lower, m_bSplitsChecked); !result) {
        return result;
    }
    for (const boost::shared_ptr<BaseDynamicSplit>& split : m_splits) {
        if (ProcessingResult<bool> result = split->processAttribute(lower, start, size, origin); !result) {
            return result;
        }
    }
    return true;
}

void BaseDynamicProcessorDispatcher::clearDerived()
{
    for (const boost::shared_ptr<BaseDynamicSplit>& split : m_splits) {
        split->clear();
    }
}

} // namespace orlix::processor
