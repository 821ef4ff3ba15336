// The frame of levels that hand pieces of their images to the level below, described by rows.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIX/ORLIXBaseProcessing/InitializerTypes.h"
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"
#include "ORLIX/ORLIXCore/RunContext.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/RowDispatch.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc {

namespace details {

template <class TRow>
concept PreparingRow = requires(const processor::OwnAttributes<typename TRow::Attribute>& own)
{
    TRow::prepare(own);
};

template <class TDerived, class TValues>
concept WeighsValues = requires(const TValues& values)
{
    {
        TDerived::weightOf(values)
        } -> std::same_as<unsigned>;
};

template <class TDerived>
concept HasGpuProcess = requires(TDerived& level, const core::BasePriority& priority,
                                 boost::shared_ptr<core::BaseActionProvider>& provider)
{
    {
        level.tryToLaunchGpuProcess(priority, provider)
        } -> std::same_as<processor::ProviderResult>;
};

} // namespace details

/// `TDerived` says its `g_text` and, as types: `Rule`, one of RuleTypes.h or ImageRuleTypes.h; `Initializers`, one of
/// InitializerTypes.h; and `NothingToDo`, a rule type, where a run may have nothing to do. `TRows` pair its attributes,
/// in order of creation, with those of `TLower`. `TDispatch` is StaticDispatch or DynamicDispatch.
///
/// A run: values that are not set are set where a row says so; nothing happens where there is nothing to do; a level
/// that has a public `tryToLaunchGpuProcess` is asked whether a GPU does the work; else the rows are dispatched. Where
/// the whole work is one host plan in one strip, the rule has been checked, and nobody watches the run or has cancelled
/// it, level 3 is run straight away: see `runStraight`.
///
/// A class whose work depends on its values, not only on the bytes that it cuts, has a public static
/// `unsigned weightOf(values)`, by which the weight of its policy is multiplied: see ProcessorDispatchPolicy. It has to
/// follow from geometry and values alone.
///
/// A level that needs more overrides `retrieveProvider`, `preProcess` or `postProcess`, and calls this frame's.
template <class TDerived, class TLibrary, template <class, class...> class TDispatch, class TLower, class... TRows>
class DispatchLevel
    : public processor::Scaffold<TDerived, processor::BaseAsync1Processor, TLibrary, typename TRows::Attribute...>
{
    using Rows = RowDispatch<TDispatch, TLower, TRows...>;

public:
    using Lower = TLower;
    using NothingToDo = Never;

    processor::RulePtr createRule() const { return TDerived::Rule::make(this->accessOwnAttributes()); }
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const
    {
        TDerived::Initializers::make(this->accessOwnAttributes(), initializers);
    }
    void clearIntermediateData() override { m_lower.clear(); }

    /// Can all rows of this level and of those below tell, and take, the whole of what they are to cut?
    template <class TValues>
    static constexpr bool canBeStraight()
    {
        return Rows::template canBeStraight<TValues>();
    }
    /// May a call with these values, or a part of it, be done without dispatching? Strips hold as many bytes as the
    /// class's policy says. No pointer that a rule looks at may be null then.
    template <class TValues>
    static bool isStraight(const TValues& values)
    {
        if constexpr (canBeStraight<TValues>()) {
            constexpr unsigned long stripBytes = processor::straightStripBytes<TDerived>();
            if constexpr (details::WeighsValues<TDerived, TValues>) {
                // Images are looked at before what follows from their sizes.
                return Rows::areRowsStraight(values, ~0UL) &&
                       Rows::isStraight(values, stripBytes / TDerived::weightOf(values));
            } else {
                return Rows::isStraight(values, stripBytes);
            }
        } else {
            return false;
        }
    }
    /// Does what a run with these values would do, on the calling thread, by a kept processor of level 3. Only where
    /// `isStraight` and the rule hold.
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        if constexpr (canBeStraight<TValues>()) {
            if (TDerived::NothingToDo::holds(values)) {
                return true;
            }
            return Rows::runStraight(values);
        } else {
            return true; // never called
        }
    }

protected:
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        m_bDispatched = false;
        (prepareRow<TRows>(), ...);
        const processor::HeldValues<typename TRows::Attribute...> values(this->accessOwnAttributes());
        if (TDerived::NothingToDo::holds(values)) {
            return processor::ProviderResult::none();
        }
        if constexpr (details::HasGpuProcess<TDerived>) {
            processor::ProviderResult gpu = static_cast<TDerived&>(*this).tryToLaunchGpuProcess(priority, provider);
            if (gpu.status != processor::eProviderStatus::eProviderNone) {
                return gpu;
            }
        }
        if constexpr (canBeStraight<decltype(values)>()) {
            const core::RunContext& context = this->accessContext();
            if (this->hasRule() && !context.isWatched() && !context.isCancelled() && isStraight(values)) {
                const ProcessingResult<bool> result = runStraight(values);
                return result ? processor::ProviderResult::none()
                              : processor::ProviderResult::failed(result.getMessage());
            }
        }
        m_bDispatched = true;
        if constexpr (details::WeighsValues<TDerived, decltype(values)>) {
            processor::ProcessorDispatchPolicy policy = this->getDispatchPolicy();
            policy.initWeight(policy.getWeight() * TDerived::weightOf(values));
            return m_lower.dispatch(this->accessOwnAttributes(), policy, priority, provider);
        } else {
            return m_lower.dispatch(this->accessOwnAttributes(), this->getDispatchPolicy(), priority, provider);
        }
    }
    processor::StepResult postProcess() override
    {
        if (m_bDispatched) {
            m_lower.finish(this->accessOwnAttributes());
        }
        return processor::StepResult::success();
    }

private:
    template <class TRow>
    void prepareRow()
    {
        if constexpr (details::PreparingRow<TRow>) {
            TRow::prepare(this->accessOwnAttributes());
        }
    }

    Rows m_lower;
    bool m_bDispatched = false; ///< of the run under way
};

/// A level that cuts whole images into plans or volumes, one element each.
template <class TDerived, class TLibrary, class TLower, class... TRows>
using PlanLevel = DispatchLevel<TDerived, TLibrary, StaticDispatch, TLower, TRows...>;
/// A level that cuts a plan or a volume into strips, one element each.
template <class TDerived, class TLibrary, class TLower, class... TRows>
using StripLevel = DispatchLevel<TDerived, TLibrary, DynamicDispatch, TLower, TRows...>;

} // namespace orlix::imaproc
