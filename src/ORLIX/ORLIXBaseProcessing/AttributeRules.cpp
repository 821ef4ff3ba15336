#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"

namespace orlix::processor {

namespace {

ProcessingResult<bool> failure(NumberedText text)
{
    return ProcessingResult<bool>::failure(std::move(text));
}

const char* relationName(eValueComparisonRuleType type)
{
    static constexpr const char* g_names[] = {"equal to",          "different from", "greater than",
                                              "at least equal to", "less than",      "at most equal to"};
    return g_names[static_cast<eValueComparisonRuleType::domain>(type)];
}

} // namespace

ProcessingResult<bool> RuleOptionalIsSet::check() const
{
    const BaseAttribute* attribute = m_attribute.access();
    if (attribute == nullptr) {
        return details::attributeGone();
    }
    if (attribute->isSet()) {
        return true;
    }
    return failure(
        formatMessage<eProcessingRuleMessage>(eProcessingRuleMessage::eOptionalNotSet, attribute->getObjectName()));
}

namespace details {

ProcessingResult<bool> attributeGone()
{
    return failure(formatMessage<eProcessingRuleMessage>(eProcessingRuleMessage::eAttributeGone));
}

ProcessingResult<bool> attributeEmpty(const BaseAttribute& attribute)
{
    return failure(
        formatMessage<eProcessingRuleMessage>(eProcessingRuleMessage::eAttributeEmpty, attribute.getObjectName()));
}

ProcessingResult<bool> comparisonFailed(const BaseAttribute& left, const std::string& leftValue,
                                        eValueComparisonRuleType type, const BaseAttribute& right,
                                        const std::string& rightValue)
{
    return failure(formatMessage<eProcessingRuleMessage>(eProcessingRuleMessage::eComparisonFailed,
                                                         left.getObjectName(), leftValue, relationName(type),
                                                         right.getObjectName(), rightValue));
}

ProcessingResult<bool> collSizeFailed(const BaseAttribute& left, unsigned long leftSize, eValueComparisonRuleType type,
                                      const BaseAttribute& right, unsigned long rightSize)
{
    return failure(formatMessage<eProcessingRuleMessage>(eProcessingRuleMessage::eCollSizeFailed, left.getObjectName(),
                                                         leftSize, relationName(type), right.getObjectName(),
                                                         rightSize));
}

} // namespace details

} // namespace orlix::processor
