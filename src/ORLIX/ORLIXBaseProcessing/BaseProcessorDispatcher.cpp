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

/// Reads one count from every split that has one; they must agree.  gives -1UL for a split without a count.
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
            return failure(eProcessorMessage::eSplitCountsDiffer, dispatcher.getProcessorName(), first->getAttributeName(), count,
                           split->getAttributeName(), own);
        }
    }
    return first != nullptr ? true : failure(eProcessorMessage::eNoSplits, dispatcher.getProcessorName());
}

ProcessingResult<bool> wrongProcessor(const BaseDataSplit& split, const BaseProcessor& lower)
{
    return failure(eProcessorMessage::eWrongProcessor, split.getAttributeName(), lower.getObjectName());
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
    ProcessingResult<bool> result = initAttributes(*lower, origin);
    action = std::move(lower);
    return result;
}

void BaseProcessorDispatcher::notifyDerived(boost::shared_ptr<core::BaseAction>& action, bool bSuccess)
{
    boost::shared_ptr<BaseProcessor> lower = boost::static_pointer_cast<BaseProcessor>(std::move(action));
    if (bSuccess) {
        giveBackIdle(std::move(lower));
    }
}

ProcessingResult<bool>
BaseStaticProcessorDispatcher::initBase(const core::BasePriority&,
                                        const std::vector<boost::shared_ptr<BaseStaticSplit>>& splits)
{
    startQueries();
    if (m_splits != splits) {
        m_splits = splits;
    }
    m_cost = 0;
    return readCommonCount(
        *this, m_splits,
        [this](const BaseStaticSplit& split, unsigned long& count) {
            count = split.getNbElements();
            m_cost += split.hasElements() ? split.getCost() : 0;
            return split.hasElements();
        },
        m_nbElements);
}

ProcessingResult<bool> BaseStaticProcessorDispatcher::initAttributes(BaseProcessor& lower,
                                                                     const core::BaseRequestOrigin& origin)
{
    for (const boost::shared_ptr<BaseStaticSplit>& split : m_splits) {
        if (!split->checkProcessorType(lower)) {
            return wrongProcessor(*split, lower);
        }
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
BaseDynamicProcessorDispatcher::initBase(const core::BasePriority&,
                                         const std::vector<boost::shared_ptr<BaseDynamicSplit>>& splits)
{
    startQueries();
    if (m_splits != splits) {
        m_splits = splits;
    }
    unsigned long widest = 1;
    unsigned long multiple = 1;
    unsigned long lineCost = 0;
    ProcessingResult<bool> result = readCommonCount(
        *this, m_splits,
        [&](const BaseDynamicSplit& split, unsigned long& count) {
            if (!split.hasLines()) {
                return false;
            }
            const RangeDemand demand = split.getRangeDemand();
            count = demand.nbLines;
            widest = std::max(widest, demand.lineBytes);
            multiple = demand.lineMultiple == multiple ? multiple : std::lcm(multiple, demand.lineMultiple);
            lineCost += demand.lineBytes;
            return true;
        },
        m_nbLines);
    const unsigned long wanted = std::max(1UL, m_policy.getStripBytes() / widest);
    m_linesPerElement = (wanted + multiple - 1) / multiple * multiple;
    m_nbElements = m_nbLines / m_linesPerElement + (m_nbLines % m_linesPerElement != 0);
    m_cost = lineCost * m_nbLines;
    return result;
}

ProcessingResult<bool> BaseDynamicProcessorDispatcher::initAttributes(BaseProcessor& lower,
                                                                      const core::BaseRequestOrigin& origin)
{
    const unsigned long start = origin.getElement() * m_linesPerElement;
    const unsigned long size = std::min(m_linesPerElement, m_nbLines - start);
    for (const boost::shared_ptr<BaseDynamicSplit>& split : m_splits) {
        if (!split->checkProcessorType(lower)) {
            return wrongProcessor(*split, lower);
        }
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
