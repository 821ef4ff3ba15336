// Compares the members of data items, whatever they are made of.
#pragma once

#include "ORLIX/ORLIXBaseData/DataValue.h"

#include <algorithm>
#include <functional>

namespace orlix {

/// Same content: records and collections member by member, pointers by what they point to; not-a-number equals itself.
template <class T>
bool isSameData(const T& left, const T& right)
{
    if constexpr (DataNode<T>) {
        return left.isEqual(right);
    } else if constexpr (DataRecord<T>) {
        bool bSame = true;
        T::visit([&](const char*, auto member) {
            bSame = bSame && isSameData(std::invoke(member, left), std::invoke(member, right));
        });
        return bSame;
    } else if constexpr (DataPointer<T>) {
        return left == right || (left != nullptr && right != nullptr && isSameData(*left, *right));
    } else if constexpr (DataCollection<T>) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                          [](const auto& a, const auto& b) { return isSameData(a, b); });
    } else if constexpr (std::floating_point<T>) {
        return left == right || (left != left && right != right);
    } else {
        return left == right;
    }
}

} // namespace orlix
