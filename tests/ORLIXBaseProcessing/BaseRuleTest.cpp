// The vocabulary of rules: each alone, and put together.
#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"

#include "ORLIXBaseProcessing/TestLibrary.h"
#include "support/ScopedLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace orlix::processor::test {
namespace {

/// Holds or not, and counts how often it was looked at.
class FixedRule final : public BaseRule
{
public:
    FixedRule(bool bHolds, std::string name) : m_bHolds(bHolds), m_name(std::move(name)) {}
    ProcessingResult<bool> check() const override
    {
        ++m_nbChecks;
        return m_bHolds ? ProcessingResult<bool>(true) : ProcessingResult<bool>::failure(m_name + " does not hold");
    }
    mutable int m_nbChecks = 0;

private:
    bool m_bHolds;
    std::string m_name;
};

boost::shared_ptr<FixedRule> rule(bool bHolds, const std::string& name)
{
    return boost::make_shared<FixedRule>(bHolds, name);
}

const std::string g_gone = "An attribute of the rule no longer exists: keep the processor that the rule was made for";

/// The numbers themselves are the collection.
struct WholeItem
{
    static const Numbers& get(const Numbers& numbers) { return numbers; }
};

struct SecondNumber final : NamedAttribute<SecondNumber, BaseValueAttribute<double>>
{
    static constexpr const char* g_name = "SecondNumber";
    static constexpr const char* g_toolTip = "Another number";
};

constexpr const char* g_relations[] = {"equal to",          "different from", "greater than",
                                       "at least equal to", "less than",      "at most equal to"};

TEST(BaseRule, NoneAlwaysHolds)
{
    EXPECT_TRUE(none()->check().getValue());
    EXPECT_EQ(none()->check().getMessage(), "");
}

TEST(BaseRule, AndNeedsBothAndStopsAtTheFirst)
{
    for (const bool bFirst : {false, true}) {
        for (const bool bSecond : {false, true}) {
            const auto first = rule(bFirst, "first");
            const auto second = rule(bSecond, "second");
            const ProcessingResult<bool> result = (RulePtr(first) && RulePtr(second))->check();
            EXPECT_EQ(result.getValue(), bFirst && bSecond);
            EXPECT_EQ(result.getMessage(), !bFirst ? "first does not hold" : !bSecond ? "second does not hold" : "");
            EXPECT_EQ(first->m_nbChecks, 1);
            EXPECT_EQ(second->m_nbChecks, bFirst ? 1 : 0);
        }
    }
}

TEST(BaseRule, IfChoosesByItsConditionWhoseOwnFailureIsNone)
{
    for (const bool bCondition : {false, true}) {
        for (const bool bThen : {false, true}) {
            for (const bool bOtherwise : {false, true}) {
                const auto then = rule(bThen, "then");
                const auto otherwise = rule(bOtherwise, "otherwise");
                const ProcessingResult<bool> result = If(rule(bCondition, "condition"), then, otherwise)->check();
                EXPECT_EQ(result.getValue(), bCondition ? bThen : bOtherwise);
                EXPECT_EQ(result.getMessage(), result       ? ""
                                               : bCondition ? "then does not hold"
                                                            : "otherwise does not hold");
                EXPECT_EQ(then->m_nbChecks, bCondition ? 1 : 0);
                EXPECT_EQ(otherwise->m_nbChecks, bCondition ? 0 : 1);
            }
        }
    }
}

TEST(BaseRule, RulesNest)
{
    const RulePtr nested = If(RulePtr(rule(true, "a")) && RulePtr(rule(false, "b")), rule(false, "c"),
                              RulePtr(rule(true, "d")) && none() && RulePtr(rule(false, "e")));
    EXPECT_EQ(nested->check().getMessage(), "e does not hold");
}

TEST(OptionalIsSet, LooksAtTheAttributeWhenItIsChecked)
{
    auto attribute = boost::make_shared<InOptNumber>();
    const RuleOptionalIsSet isSet{boost::weak_ptr<InOptNumber>(attribute)};
    EXPECT_FALSE(isSet.check().getValue());
    EXPECT_EQ(isSet.check().getMessage(), "Optional attribute InOptNumber has to be set here");
    attribute->init(1);
    EXPECT_TRUE(isSet.check().getValue());
    attribute.reset();
    EXPECT_EQ(isSet.check().getMessage(), g_gone);
}

struct Operands
{
    double left;
    double right;
    bool holds[6]; ///< equal, not equal, greater, greater or equal, less, less or equal
};

template <int type>
void expectComparison(const Operands& operands)
{
    auto left = boost::make_shared<InNumber>();
    auto right = boost::make_shared<SecondNumber>();
    const RuleAttributeComparison<InNumber, SecondNumber, type> comparison(left, right);
    left->init(operands.left);
    right->init(operands.right);
    const ProcessingResult<bool> result = comparison.check();
    SCOPED_TRACE(std::to_string(operands.left) + " is " + g_relations[type] + " " + std::to_string(operands.right));
    EXPECT_EQ(result.getValue(), operands.holds[type]);
    std::ostringstream expected;
    if (!operands.holds[type]) {
        expected << "InNumber is " << operands.left << ", but has to be " << g_relations[type]
                 << " SecondNumber, which is " << operands.right;
    }
    EXPECT_EQ(result.getMessage(), expected.str());
    right.reset();
    EXPECT_EQ(comparison.check().getMessage(), g_gone);
}

TEST(AttributeComparison, AllRelationsWithNotANumber)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const Operands table[] = {
        {1, 2, {false, true, false, false, true, true}},
        {2, 2, {true, false, false, true, false, true}},
        {3, 2, {false, true, true, true, false, false}},
        {0.0, -0.0, {true, false, false, true, false, true}},
        {-infinity, infinity, {false, true, false, false, true, true}},
        {infinity, infinity, {true, false, false, true, false, true}},
        {nan, 2, {false, true, false, false, false, false}},
        {2, nan, {false, true, false, false, false, false}},
        {nan, nan, {false, true, false, false, false, false}},
    };
    for (const Operands& operands : table) {
        [&]<int... types>(std::integer_sequence<int, types...>)
        {
            (expectComparison<types>(operands), ...);
        }
        (std::make_integer_sequence<int, 6>());
    }
}

TEST(AttributeComparison, ItsTextHasAllDigitsInEveryLocale)
{
    auto left = boost::make_shared<InNumber>();
    auto right = boost::make_shared<SecondNumber>();
    left->init(1234567.25);
    right->init(0.1);
    const RuleAttributeComparison<InNumber, SecondNumber, eValueComparisonRuleType::eLess> less(left, right);
    const std::string text = "InNumber is 1234567.25, but has to be less than SecondNumber, which is 0.1";
    EXPECT_EQ(less.check().getMessage(), text);
    const orlix::testing::ScopedCppLocale scope;
    EXPECT_EQ(less.check().getMessage(), text);
}

TEST(AttributeComparison, TheRelationsHaveTheirFixedValues)
{
    EXPECT_EQ(eValueComparisonRuleType::eEqual, 0);
    EXPECT_EQ(eValueComparisonRuleType::eNotEqual, 1);
    EXPECT_EQ(eValueComparisonRuleType::eGreater, 2);
    EXPECT_EQ(eValueComparisonRuleType::eGreaterOrEqual, 3);
    EXPECT_EQ(eValueComparisonRuleType::eLess, 4);
    EXPECT_EQ(eValueComparisonRuleType::eLessOrEqual, 5);
}

template <int type>
void expectSizeComparison(unsigned long leftSize, unsigned long rightSize, bool bHolds)
{
    auto left = boost::make_shared<InNumbers>();
    auto right = boost::make_shared<OutNumbers>();
    const BaseTNodesCollSizeRule<InNumbers, WholeItem, OutNumbers, WholeItem, type> sizes(left, right);
    left->init(boost::make_shared<Numbers>(leftSize));
    right->init(boost::make_shared<Numbers>(rightSize));
    const ProcessingResult<bool> result = sizes.check();
    EXPECT_EQ(result.getValue(), bHolds) << leftSize << " " << g_relations[type] << " " << rightSize;
    EXPECT_EQ(result.getMessage(), bHolds ? ""
                                          : "InNumbers has " + std::to_string(leftSize) +
                                                " entries, but their number has to be " + g_relations[type] +
                                                " that of OutNumbers, which has " + std::to_string(rightSize));
    left.reset();
    EXPECT_EQ(sizes.check().getMessage(), g_gone);
}

TEST(CollSize, AllRelations)
{
    for (const auto& [left, right] :
         {std::pair{0UL, 0UL}, std::pair{0UL, 3UL}, std::pair{3UL, 3UL}, std::pair{4UL, 3UL}}) {
        expectSizeComparison<0>(left, right, left == right);
        expectSizeComparison<1>(left, right, left != right);
        expectSizeComparison<2>(left, right, left > right);
        expectSizeComparison<3>(left, right, left >= right);
        expectSizeComparison<4>(left, right, left < right);
        expectSizeComparison<5>(left, right, left <= right);
    }
}

TEST(CollSize, AnItemThatIsNotThereIsAFailureNotACrash)
{
    const auto left = boost::make_shared<InNumbers>();
    const auto right = boost::make_shared<OutNumbers>();
    const BaseTNodesCollSizeRule<InNumbers, WholeItem, OutNumbers, WholeItem> sizes(left, right);
    EXPECT_EQ(sizes.check().getMessage(), "InNumbers holds nothing: set it before the run");
    left->init(boost::make_shared<Numbers>());
    right->init({});
    EXPECT_EQ(sizes.check().getMessage(), "OutNumbers holds nothing: set it before the run");
}

} // namespace
} // namespace orlix::processor::test
