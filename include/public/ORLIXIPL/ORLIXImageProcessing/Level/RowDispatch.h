// The dispatch of rows: a dispatcher, a split for each row that feeds the level below, and what rows keep for a run.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Level/LevelRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/LowerValues.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

namespace orlix::imaproc {

namespace details {

/// Something for each row that feeds the lower level, in order: `TApply<TLower, rows…>`.
template <class TLower, class TFeeding, class... TRows>
struct FeedingRowsOf;

template <class...>
struct RowList
{};

template <class TLower, class... TFeeding>
struct FeedingRowsOf<TLower, RowList<TFeeding...>>
{
    using List = RowList<TFeeding...>;
};
template <class TLower, class... TFeeding, class TRow, class... TRows>
struct FeedingRowsOf<TLower, RowList<TFeeding...>, TRow, TRows...>
    : FeedingRowsOf<TLower,
                    std::conditional_t<std::is_void_v<typename TRow::template Split<TLower>>, RowList<TFeeding...>,
                                       RowList<TFeeding..., TRow>>,
                    TRows...>
{};

template <class TRow>
concept StatefulRow = requires
{
    typename TRow::State;
};

template <class TRow, class TValues>
concept StraightRow = requires(const TValues& values)
{
    {
        TRow::isStraight(values, 0UL)
        } -> std::same_as<bool>;
};

/// Tells the states of rows apart.
template <class TRow>
struct RowState
{};
template <StatefulRow TRow>
struct RowState<TRow>
{
    typename TRow::State state;
};

template <template <class, class...> class TDispatch, class TLower, class TList>
struct DispatchOfRows;
template <template <class, class...> class TDispatch, class TLower, class... TFeeding>
struct DispatchOfRows<TDispatch, TLower, RowList<TFeeding...>>
{
    using Dispatch = TDispatch<TLower, typename TFeeding::template Split<TLower>...>;
};

} // namespace details

/// `TDispatch` is StaticDispatch or DynamicDispatch, `TLower` the level below. What is static is for calls that need no
/// dispatch: see DispatchLevel.
template <template <class, class...> class TDispatch, class TLower, class... TRows>
class RowDispatch
{
    using Feeding = typename details::FeedingRowsOf<TLower, details::RowList<>, TRows...>::List;

public:
    /// Can all rows, and those of the levels below, tell, and take, the whole of what they are to cut?
    template <class TValues>
    static constexpr bool canBeStraight()
    {
        if constexpr (requires { TLower::template canBeStraight<LowerValues<TValues, TRows...>>(); }) {
            return (details::StraightRow<TRows, TValues> && ...) &&
                   TLower::template canBeStraight<LowerValues<TValues, TRows...>>();
        } else {
            return false;
        }
    }
    /// Is there one element, down to level 3? Only where `canBeStraight`.
    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long stripBytes)
    {
        return areRowsStraight(values, stripBytes) && isLowerStraight(values);
    }
    /// The same of this level alone.
    template <class TValues>
    static bool areRowsStraight(const TValues& values, unsigned long stripBytes)
    {
        return (isRowStraight<TRows>(values, stripBytes) && ...);
    }
    /// Does that element on the calling thread. Only where `isStraight`.
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        ProcessingResult<bool> result = TLower::runStraight(LowerValues<TValues, TRows...>(values));
        (finishStraight<TRows>(values), ...);
        return result;
    }

    /// Sets up the splits from their rows, in order, and the dispatcher.
    template <class TAttributes>
    processor::ProviderResult dispatch(const TAttributes& attributes, const processor::ProcessorDispatchPolicy& policy,
                                       const core::BasePriority& priority,
                                       boost::shared_ptr<core::BaseActionProvider>& provider)
    {
        return dispatchRows(Feeding(), attributes, policy, priority, provider);
    }
    /// To be called after a run that was dispatched.
    template <class TAttributes>
    void finish(const TAttributes& attributes)
    {
        (finishRow<TRows>(attributes), ...);
    }
    /// Lets go of what should not be kept from run to run.
    void clear() { (clearRow<TRows>(), ...); }

private:
    template <class TRow, class TValues>
    static bool isRowStraight(const TValues& values, unsigned long stripBytes)
    {
        return TRow::isStraight(values, stripBytes);
    }
    template <class TValues>
    static bool isLowerStraight(const TValues& values)
    {
        return TLower::isStraight(LowerValues<TValues, TRows...>(values));
    }
    template <class TRow, class TValues>
    static void finishStraight(const TValues& values)
    {
        if constexpr (requires { TRow::finishStraight(values); }) {
            TRow::finishStraight(values);
        }
    }

    template <class... TFeeding, class TAttributes>
    processor::ProviderResult dispatchRows(details::RowList<TFeeding...>, const TAttributes& attributes,
                                           const processor::ProcessorDispatchPolicy& policy,
                                           const core::BasePriority& priority,
                                           boost::shared_ptr<core::BaseActionProvider>& provider)
    {
        return m_dispatch.dispatch(policy, priority, provider, sourceOf<TFeeding>(attributes)...);
    }
    template <class TRow, class TAttributes>
    auto sourceOf(const TAttributes& attributes)
    {
        if constexpr (details::StatefulRow<TRow>) {
            return TRow::source(attributes, accessState<TRow>());
        } else {
            return TRow::source(attributes);
        }
    }
    template <class TRow, class TAttributes>
    void finishRow(const TAttributes& attributes)
    {
        if constexpr (requires { TRow::finish(attributes, this->accessState<TRow>()); }) {
            TRow::finish(attributes, accessState<TRow>());
        }
    }
    template <class TRow>
    void clearRow()
    {
        if constexpr (requires { TRow::clear(this->accessState<TRow>()); }) {
            TRow::clear(accessState<TRow>());
        }
    }
    template <details::StatefulRow TRow>
    typename TRow::State& accessState()
    {
        return std::get<details::RowState<TRow>>(m_states).state;
    }

    typename details::DispatchOfRows<TDispatch, TLower, Feeding>::Dispatch m_dispatch;
    std::tuple<details::RowState<TRows>...> m_states;
};

} // namespace orlix::imaproc
