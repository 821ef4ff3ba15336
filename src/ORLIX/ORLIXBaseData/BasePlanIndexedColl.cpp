// Entries for the plans of an image, whatever the entries are.
#include "ORLIX/ORLIXBaseData/BasePlanIndexedColl.h"

#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLogMessages.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <algorithm>
#include <set>

namespace orlix {

namespace {

using Message = eORLIXBaseDataMessage;

/// One more than each index has to fit.
bool isCountable(const PlanIndex& index)
{
    return std::max({index.z, index.c, index.t}) < NumericLimits<unsigned long>::s_max;
}

} // namespace

BasePlanIndexedColl::~BasePlanIndexedColl() = default;

const PlanIndex& BasePlanIndexedColl::getPlanIndex(unsigned long position) const
{
    if (position >= size()) {
        raise<Message>(ORLIX_HERE, Message::eNoEntry, position, size());
    }
    return m_order[position];
}

ProcessingResult<bool> BasePlanIndexedColl::checkOrder(const std::vector<PlanIndex>& order, unsigned long nbItems)
{
    if (order.size() != nbItems) {
        return BoolResult::failure(formatMessage<Message>(Message::eOtherCount, order.size(), nbItems));
    }
    std::set<PlanIndex> known;
    for (const PlanIndex& index : order) {
        if (!isCountable(index)) {
            return BoolResult::failure(formatMessage<Message>(Message::ePlanIndexTooLarge, index));
        }
        if (!known.insert(index).second) {
            return BoolResult::failure(formatMessage<Message>(Message::eDuplicatePlanIndex, index));
        }
    }
    return BoolResult::success();
}

void BasePlanIndexedColl::addIndex(const PlanIndex& index)
{
    if (contains(index)) {
        raise<Message>(ORLIX_HERE, Message::eDuplicatePlanIndex, index);
    }
    if (!isCountable(index)) {
        raise<Message>(ORLIX_HERE, Message::ePlanIndexTooLarge, index);
    }
    m_order.push_back(index);
    m_positions.emplace(index, m_order.size() - 1);
    growMaxSizes({index.z + 1, index.c + 1, index.t + 1});
}

unsigned long BasePlanIndexedColl::findPosition(const PlanIndex& index) const
{
    const auto found = m_positions.find(index);
    return found != m_positions.end() ? found->second : size();
}

void BasePlanIndexedColl::growMaxSizes(const PlanIndex& sizes)
{
    m_maxSizes = {std::max(m_maxSizes.z, sizes.z), std::max(m_maxSizes.c, sizes.c), std::max(m_maxSizes.t, sizes.t)};
}

unsigned long BasePlanIndexedColl::countPlans(const PlanIndex& sizes, unsigned long limit)
{
    unsigned long product = 0;
    const bool bEmpty = sizes.z == 0 || sizes.c == 0 || sizes.t == 0;
    if (!bEmpty && (__builtin_mul_overflow(sizes.z, sizes.c, &product) ||
                    __builtin_mul_overflow(product, sizes.t, &product) || product > limit)) {
        raise<Message>(ORLIX_HERE, Message::eTooManyPlans, sizes.z, sizes.c, sizes.t);
    }
    return bEmpty ? 0 : product;
}

} // namespace orlix
