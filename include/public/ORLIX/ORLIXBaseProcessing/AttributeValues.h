// The values of a level's attributes by class, wherever they lie: in the attributes, or still with the caller.
//
// All kinds of values have
//     template <class TAttribute> … get() const;         // a pointer, shared or plain, or a value
//     template <class TAttribute> static constexpr bool isGiven();
#pragma once

#include <boost/shared_ptr.hpp>

#include <tuple>
#include <type_traits>

namespace orlix::processor {

/// The attributes of a level, one of each class.
template <class... TAttributes>
using OwnAttributes = std::tuple<boost::shared_ptr<TAttributes>...>;

/// What an attribute holds: a pointer, or a value, set or by default.
template <class TAttribute>
const typename TAttribute::StorageType& storageOf(const TAttribute& attribute)
{
    if constexpr (requires { attribute.getStorage(); }) {
        return attribute.getStorage();
    } else {
        return attribute.accessValue();
    }
}

/// Of a shared pointer the plain one; everything else as it is.
template <class T>
T* pointerTo(const boost::shared_ptr<T>& pointer)
{
    return pointer.get();
}
template <class TValue>
TValue pointerTo(const TValue& value)
{
    return value;
}

/// The values that the attributes of a level hold. Refers to them.
template <class... TAttributes>
class HeldValues
{
public:
    explicit HeldValues(const OwnAttributes<TAttributes...>& attributes) : m_attributes(attributes) {}

    template <class TAttribute>
    const typename TAttribute::StorageType& get() const
    {
        return storageOf(*std::get<boost::shared_ptr<TAttribute>>(m_attributes));
    }
    /// A run starts when all attributes have been looked at.
    template <class TAttribute>
    static constexpr bool isGiven()
    {
        return true;
    }

private:
    const OwnAttributes<TAttributes...>& m_attributes;
};

template <class... TAttributes>
HeldValues<TAttributes...> heldValues(const OwnAttributes<TAttributes...>& attributes)
{
    return HeldValues<TAttributes...>(attributes);
}

/// A value for an attribute, by reference.
template <class TAttribute>
struct AttributeValue
{
    using Attribute = TAttribute;
    const typename TAttribute::StorageType& value;
};

template <class TAttribute>
AttributeValue<TAttribute> with(const typename TAttribute::StorageType& value)
{
    return {value};
}

/// The values that a call gives, which it refers to; for an attribute that it gives none, the class's default, a null
/// pointer where there is none.
template <class... TValues>
class CallValues
{
public:
    explicit CallValues(const TValues&... values) : m_values(values...) {}

    template <class TAttribute>
    decltype(auto) get() const
    {
        if constexpr (isGiven<TAttribute>()) {
            return static_cast<const typename TAttribute::StorageType&>(
                std::get<const AttributeValue<TAttribute>&>(m_values).value);
        } else if constexpr (requires(const TAttribute& unset) { unset.accessValue(); }) {
            return typename TAttribute::StorageType(TAttribute().accessValue());
        } else {
            return typename TAttribute::StorageType();
        }
    }

    template <class TAttribute>
    static constexpr bool isGiven()
    {
        return (std::is_same_v<typename TValues::Attribute, TAttribute> || ...);
    }

private:
    std::tuple<const TValues&...> m_values;
};

} // namespace orlix::processor
