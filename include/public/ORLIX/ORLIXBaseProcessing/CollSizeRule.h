// The rule that compares the sizes of two collections which are leaves of data items.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/RuleTypes.h"

namespace orlix::processor {

/// The collection that leaf `TLeaf` of a data item is.
template <class TLeaf>
struct CollOfLeaf
{
    template <class TItem>
    static const typename TLeaf::ValueType& get(const TItem& item)
    {
        return item.template get<TLeaf>();
    }
};

/// Both collections have the same size.
template <class TAttribute1, class TLeaf1, class TAttribute2, class TLeaf2>
using RuleNodesCollSize = BaseTNodesCollSizeRule<TAttribute1, CollOfLeaf<TLeaf1>, TAttribute2, CollOfLeaf<TLeaf2>>;

/// The same as a type, see RuleTypes.h.
template <class TAttribute1, class TLeaf1, class TAttribute2, class TLeaf2>
struct MatchCollSize
{
    template <class TAttributes>
    static RulePtr make(const TAttributes& attributes)
    {
        return boost::make_shared<RuleNodesCollSize<TAttribute1, TLeaf1, TAttribute2, TLeaf2>>(
            own<TAttribute1>(attributes), own<TAttribute2>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return values.template get<TAttribute1>()->template get<TLeaf1>().size() ==
               values.template get<TAttribute2>()->template get<TLeaf2>().size();
    }
};

} // namespace orlix::processor
