// Rules as types: from one follow both the rule object, which tells in words what is wrong, and the predicate on
// values, which only tells whether anything is.
//
// A rule type has
//     template <class TAttributes> static RulePtr make(const TAttributes& attributes);   // OwnAttributes of the level
//     template <class TValues> static bool holds(const TValues& values);                 // none of them a null pointer
// and `holds` is true exactly where the rule object made by `make` succeeds on attributes with those values.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"
#include "ORLIX/ORLIXBaseProcessing/AttributeValues.h"

namespace orlix::processor {

/// The attribute of class `TAttribute` among those of a level.
template <class TAttribute, class TAttributes>
const boost::shared_ptr<TAttribute>& own(const TAttributes& attributes)
{
    return std::get<boost::shared_ptr<TAttribute>>(attributes);
}

/// Always true.
struct NoRule
{
    template <class TAttributes>
    static RulePtr make(const TAttributes&)
    {
        return none();
    }
    template <class TValues>
    static bool holds(const TValues&)
    {
        return true;
    }
};

/// All of them; each is looked at only where those before it hold.
template <class... TRules>
struct AllOf
{
    template <class TAttributes>
    static RulePtr make(const TAttributes& attributes)
    {
        return (TRules::make(attributes) && ...);
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return (TRules::holds(values) && ...);
    }
};

/// `TRule` where the optional attribute has been set, to no null pointer; true where it has not.
template <class TAttribute, class TRule>
struct IfSet
{
    template <class TAttributes>
    static RulePtr make(const TAttributes& attributes)
    {
        return If(boost::make_shared<RuleOptionalIsSet>(own<TAttribute>(attributes)), TRule::make(attributes), none());
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return pointerTo(values.template get<TAttribute>()) == nullptr || TRule::holds(values);
    }
};

/// The first attribute's value compared with the second's, as BaseTAttributeComparisonRule tells.
template <class TAttribute1, eValueComparisonRuleType::domain type, class TAttribute2>
struct Compared
{
    template <class TAttributes>
    static RulePtr make(const TAttributes& attributes)
    {
        return boost::make_shared<RuleAttributeComparison<TAttribute1, TAttribute2, type>>(
            own<TAttribute1>(attributes), own<TAttribute2>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return details::holds(type, values.template get<TAttribute1>(), values.template get<TAttribute2>());
    }
};

} // namespace orlix::processor
