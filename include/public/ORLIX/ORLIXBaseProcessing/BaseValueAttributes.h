// Attributes that hold a plain value or an enumeration.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"
#include "ORLIX/ORLIXBaseProcessing/ValueText.h"

namespace orlix::processor {

/// Input attribute that holds a value; unset, it holds the default of its class. Takes text where there is a ValueText.
template <class TValue>
class BaseValueAttribute : public BaseAttribute
{
public:
    using StorageType = TValue;
    static constexpr bool g_bOutput = false;

    explicit BaseValueAttribute(const TValue& defaultValue = {}) : m_default(defaultValue), m_value(defaultValue) {}

    bool isOutput() const override { return false; }
    eAttributeType getAttributeType() const override { return eAttributeType::eValueAttribute; }
    void clear() override { m_value = m_default, markUnset(); }

    void init(const TValue& value) { m_value = value, markSet(); }
    /// As data items and strips are borrowed.
    void borrow(const TValue& value) { init(value); }
    const TValue& accessValue() const { return m_value; }
    virtual TValue getValue() const { return m_value; }

    bool takesText() const override { return TextValue<TValue>; }
    std::string getValueKind() const override
    {
        if constexpr (TextValue<TValue>) {
            return ValueText<TValue>::kind();
        } else {
            return BaseAttribute::getValueKind();
        }
    }
    ProcessingResult<bool> setFromText(const std::string& text) override
    {
        if constexpr (TextValue<TValue>) {
            TValue value{};
            if (!ValueText<TValue>::read(text, value)) {
                return refuseText(text);
            }
            init(value);
            return true;
        } else {
            return BaseAttribute::setFromText(text);
        }
    }
    std::optional<std::string> getValueText() const override { return textOf(m_value); }
    std::optional<std::string> getDefaultText() const override { return textOf(m_default); }

private:
    static std::optional<std::string> textOf(const TValue& value)
    {
        if constexpr (TextValue<TValue>) {
            return ValueText<TValue>::write(value);
        } else {
            return std::nullopt;
        }
    }

    TValue m_default;
    TValue m_value;
};

/// Input attribute that holds an enumeration of the family.
template <class TEnum>
class IPEnumAttribute : public BaseValueAttribute<TEnum>
{
public:
    using BaseValueAttribute<TEnum>::BaseValueAttribute;
};

} // namespace orlix::processor
