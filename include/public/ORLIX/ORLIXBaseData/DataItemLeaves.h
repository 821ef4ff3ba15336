// A record whose members are leaves known by their types.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaf.h"

#include <tuple>
#include <type_traits>

namespace orlix {

namespace details {

/// Reaches one leaf of a record as a member pointer would.
template <class TLeaf>
struct LeafMember
{
    template <class TRecord>
    auto& operator()(TRecord& record) const
    {
        if constexpr (std::is_const_v<TRecord>) {
            return record.template get<TLeaf>();
        } else {
            return record.template access<TLeaf>();
        }
    }
};

} // namespace details

/// `DataItemLeaves<X, Y>` holds one of each, in that order: `leaves.access<X>() = 1.5; leaves.get<X>();`
template <class... TLeaves>
class DataItemLeaves
{
public:
    template <class TLeaf>
    const typename TLeaf::ValueType& get() const
    {
        return std::get<TLeaf>(m_leaves).getValue();
    }

    template <class TLeaf>
    typename TLeaf::ValueType& access()
    {
        return std::get<TLeaf>(m_leaves).accessValue();
    }

    /// Calls `visitor(name, member)` for each leaf; `std::invoke(member, record)` is the leaf's value.
    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        (visitor(TLeaves::g_name, details::LeafMember<TLeaves>()), ...);
    }

private:
    std::tuple<TLeaves...> m_leaves;
};

} // namespace orlix
