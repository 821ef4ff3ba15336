#include "ORLIX/ORLIXBaseProcessing/BaseRule.h"

#include <boost/make_shared.hpp>

namespace orlix::processor {

namespace {

class NoRule final : public BaseRule
{
public:
    ProcessingResult<bool> check() const override { return true; }
};

class IfRule final : public BaseRule
{
public:
    IfRule(const RulePtr& condition, const RulePtr& then, const RulePtr& otherwise)
        : m_condition(condition), m_then(then), m_otherwise(otherwise)
    {}
    ProcessingResult<bool> check() const override
    {
        return m_condition->check() ? m_then->check() : m_otherwise->check();
    }

private:
    RulePtr m_condition;
    RulePtr m_then;
    RulePtr m_otherwise;
};

class AndRule final : public BaseRule
{
public:
    AndRule(const RulePtr& first, const RulePtr& second) : m_first(first), m_second(second) {}
    ProcessingResult<bool> check() const override
    {
        ProcessingResult<bool> result = m_first->check();
        return result ? m_second->check() : result;
    }

private:
    RulePtr m_first;
    RulePtr m_second;
};

} // namespace

BaseRule::~BaseRule() = default;

RulePtr none()
{
    static const RulePtr g_none = boost::make_shared<NoRule>();
    return g_none;
}

RulePtr If(const RulePtr& condition, const RulePtr& then, const RulePtr& otherwise)
{
    return boost::make_shared<IfRule>(condition, then, otherwise);
}

RulePtr operator&&(const RulePtr& first, const RulePtr& second)
{
    return boost::make_shared<AndRule>(first, second);
}

} // namespace orlix::processor
