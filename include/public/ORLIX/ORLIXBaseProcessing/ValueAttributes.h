// Attributes that hold a plain value or an enumeration.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

namespace orlix::processor {

/// Input attribute that holds a value; unset, it holds the default of its class.
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
    const TValue& accessValue() const { return m_value; }
    TValue getValue() const { return m_value; }

private:
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
