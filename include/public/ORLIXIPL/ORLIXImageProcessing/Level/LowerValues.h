// What the rows of a level make of its values for the level below, where nothing is cut.
#pragma once

#include <type_traits>

namespace orlix::imaproc {

namespace details {

template <class TLowerAttribute, class TFirst, class... TRest>
constexpr auto findRow()
{
    if constexpr (std::is_same_v<typename TFirst::LowerAttribute, TLowerAttribute>) {
        return std::type_identity<TFirst>();
    } else {
        static_assert(sizeof...(TRest) > 0, "no row of the level above feeds this attribute of the lower one");
        return findRow<TLowerAttribute, TRest...>();
    }
}

} // namespace details

/// The values of the lower level's attributes; refers to those of the upper level, of which `TRows` are the rows.
template <class TValues, class... TRows>
class LowerValues
{
public:
    explicit LowerValues(const TValues& values) : m_values(values) {}

    template <class TAttribute>
    auto get() const
    {
        return decltype(details::findRow<TAttribute, TRows...>())::type::take(m_values);
    }
    template <class TAttribute>
    static constexpr bool isGiven()
    {
        return true;
    }

private:
    const TValues& m_values;
};

} // namespace orlix::imaproc
