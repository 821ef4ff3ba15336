// Rules about attributes of any kind: is it set, how do two values or two collection sizes compare.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"
#include "ORLIX/ORLIXBaseProcessing/BaseRule.h"
#include "ORLIX/ORLIXBaseProcessing/ValueText.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"

#include <boost/make_shared.hpp>

#include <locale>
#include <sstream>

namespace orlix::processor {

struct eValueComparisonRuleType
{
    enum domain { eEqual = 0, eNotEqual = 1, eGreater = 2, eGreaterOrEqual = 3, eLess = 4, eLessOrEqual = 5 };
    ORLIX_ENUMERATION(eValueComparisonRuleType, eEqual);
};

/// The optional attribute has been set.
class ORLIXBASEPROCESSING_API RuleOptionalIsSet final : public BaseRule
{
public:
    explicit RuleOptionalIsSet(const AttributeRef<const BaseAttribute>& attribute) : m_attribute(attribute) {}
    ProcessingResult<bool> check() const override;

private:
    AttributeRef<const BaseAttribute> m_attribute;
};

namespace details {

template <class TLeft, class TRight>
bool holds(eValueComparisonRuleType type, const TLeft& left, const TRight& right)
{
    switch (static_cast<eValueComparisonRuleType::domain>(type)) {
    case eValueComparisonRuleType::eEqual: return left == right;
    case eValueComparisonRuleType::eNotEqual: return left != right;
    case eValueComparisonRuleType::eGreater: return left > right;
    case eValueComparisonRuleType::eGreaterOrEqual: return left >= right;
    case eValueComparisonRuleType::eLess: return left < right;
    case eValueComparisonRuleType::eLessOrEqual: return left <= right;
    }
    return false;
}

/// A value in a failure's text, whatever the locale.
template <class TValue>
std::string toText(const TValue& value)
{
    if constexpr (TextValue<TValue>) {
        return ValueText<TValue>::write(value);
    } else {
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream << value;
        return stream.str();
    }
}

ORLIXBASEPROCESSING_API ProcessingResult<bool> attributeGone();
ORLIXBASEPROCESSING_API ProcessingResult<bool> attributeEmpty(const BaseAttribute& attribute);
ORLIXBASEPROCESSING_API ProcessingResult<bool> comparisonFailed(const BaseAttribute& left, const std::string& leftValue,
                                                                eValueComparisonRuleType type,
                                                                const BaseAttribute& right,
                                                                const std::string& rightValue);
ORLIXBASEPROCESSING_API ProcessingResult<bool> collSizeFailed(const BaseAttribute& left, unsigned long leftSize,
                                                              eValueComparisonRuleType type, const BaseAttribute& right,
                                                              unsigned long rightSize);

} // namespace details

/// Compares the values of two attributes; the first is the left operand. NaN holds for `eNotEqual` alone.
template <class TAttribute1, class TAttribute2, int type>
class BaseTAttributeComparisonRule : public BaseRule
{
public:
    BaseTAttributeComparisonRule(const AttributeRef<const TAttribute1>& left,
                                 const AttributeRef<const TAttribute2>& right)
        : m_left(left), m_right(right)
    {}

    ProcessingResult<bool> check() const override
    {
        const TAttribute1* left = m_left.access();
        const TAttribute2* right = m_right.access();
        if (left == nullptr || right == nullptr) {
            return details::attributeGone();
        }
        constexpr auto g_type = static_cast<eValueComparisonRuleType::domain>(type);
        if (details::holds(g_type, left->accessValue(), right->accessValue())) {
            return true;
        }
        return details::comparisonFailed(*left, details::toText(left->accessValue()), g_type, *right,
                                         details::toText(right->accessValue()));
    }

private:
    AttributeRef<const TAttribute1> m_left;
    AttributeRef<const TAttribute2> m_right;
};

template <class TAttribute1, class TAttribute2, int type>
using RuleAttributeComparison = BaseTAttributeComparisonRule<TAttribute1, TAttribute2, type>;

/// Compares the sizes of two collections, each found in its attribute's data item by `TColl1::get` and `TColl2::get`,
/// which take the item and give the collection.
template <class TAttribute1, class TColl1, class TAttribute2, class TColl2, int type = 0>
class BaseTNodesCollSizeRule : public BaseRule
{
public:
    BaseTNodesCollSizeRule(const AttributeRef<const TAttribute1>& left, const AttributeRef<const TAttribute2>& right)
        : m_left(left), m_right(right)
    {}

    ProcessingResult<bool> check() const override
    {
        const TAttribute1* left = m_left.access();
        const TAttribute2* right = m_right.access();
        if (left == nullptr || right == nullptr) {
            return details::attributeGone();
        }
        if (!left->isHeld()) {
            return details::attributeEmpty(*left);
        }
        if (!right->isHeld()) {
            return details::attributeEmpty(*right);
        }
        constexpr auto g_type = static_cast<eValueComparisonRuleType::domain>(type);
        const unsigned long leftSize = TColl1::get(left->getDataItemNode()).size();
        const unsigned long rightSize = TColl2::get(right->getDataItemNode()).size();
        if (details::holds(g_type, leftSize, rightSize)) {
            return true;
        }
        return details::collSizeFailed(*left, leftSize, g_type, *right, rightSize);
    }

private:
    AttributeRef<const TAttribute1> m_left;
    AttributeRef<const TAttribute2> m_right;
};

} // namespace orlix::processor
