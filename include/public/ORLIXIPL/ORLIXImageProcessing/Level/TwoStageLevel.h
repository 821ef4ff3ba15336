// The frame of levels whose work has two stages, each described by rows.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIX/ORLIXBaseProcessing/InitializerTypes.h"
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/HostImages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/RowDispatch.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc {

/// The attributes of a level in order of creation, where rows don't tell them.
template <class... TAttributes>
struct AttributeList
{};

/// One stage: `TDispatch` is StaticDispatch or DynamicDispatch, down to `TLower`; `TRows` as for DispatchLevel.
template <template <class, class...> class TDispatch, class TLower, class... TRows>
using Stage = RowDispatch<TDispatch, TLower, TRows...>;

/// `TDerived` says its `g_text`, `Rule` and `Initializers` as for DispatchLevel and, as a rule type, `OnlySecond`:
/// where it holds, the second stage's work is done in the first one, and the second has nothing to do. Otherwise the
/// second stage starts when all elements of the first have ended. Where its rule type `NothingFirst` holds, the first
/// stage has nothing to do. A class whose calls may go straight to level 3 states `g_bStraight = true`.
///
/// A run whose images are on a device fails before the first stage writes anything, unless all are and the class has a
/// static `bool worksOnDevice(values)` that says that both stages can work there.
template <class TDerived, class TLibrary, class TAttributeList, class TFirst, class TSecond>
class TwoStageLevel;

template <class TDerived, class TLibrary, class... TAttributes, class TFirst, class TSecond>
class TwoStageLevel<TDerived, TLibrary, AttributeList<TAttributes...>, TFirst, TSecond>
    : public processor::Scaffold<TDerived, processor::BaseAsync2Processor, TLibrary, TAttributes...>
{
public:
    using OnlySecond = Never;
    using NothingFirst = Never;
    static constexpr bool g_bStraight = false;
    template <class TValues>
    static bool worksOnDevice(const TValues&)
    {
        return false;
    }

    processor::RulePtr createRule() const { return TDerived::Rule::make(this->accessOwnAttributes()); }
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const
    {
        TDerived::Initializers::make(this->accessOwnAttributes(), initializers);
    }
    void clearIntermediateData() override
    {
        m_first.clear();
        m_second.clear();
    }

    // For calls that need no dispatch, as those of DispatchLevel, where the class asks for them.
    template <class TValues>
    static constexpr bool canBeStraight()
    {
        if constexpr (TDerived::g_bStraight) {
            return TFirst::template canBeStraight<TValues>() && TSecond::template canBeStraight<TValues>();
        } else {
            return false;
        }
    }
    template <class TValues>
    static bool isStraight(const TValues& values)
    {
        if constexpr (canBeStraight<TValues>()) {
            constexpr unsigned long stripBytes = processor::straightStripBytes<TDerived>();
            return TSecond::isStraight(values, stripBytes) &&
                   (TFirst::isStraight(values, stripBytes) ||
                    ((isThere(values.template get<TAttributes>()) && ...) && hasOnlySecond(values)));
        } else {
            return false;
        }
    }
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        if constexpr (canBeStraight<TValues>()) {
            if (!hasOnlySecond(values)) {
                if (ProcessingResult<bool> result = TFirst::runStraight(values); !result) {
                    return result;
                }
            }
            return TSecond::runStraight(values);
        } else {
            return true; // never called
        }
    }

protected:
    processor::ProviderResult retrieveFirstProvider(const core::BasePriority& priority,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        const processor::HeldValues<TAttributes...> values(this->accessOwnAttributes());
        if (const ProcessingResult<bool> result = checkHostImages<TAttributes...>(values); !result) {
            if (hasHostImage<TAttributes...>(values) || !TDerived::worksOnDevice(values)) {
                return processor::ProviderResult::failed(result.getMessage());
            }
        }
        m_bOnlySecond = TDerived::OnlySecond::holds(values);
        if (TDerived::NothingFirst::holds(values)) {
            return processor::ProviderResult::none();
        }
        return m_bOnlySecond ? dispatch(m_second, priority, provider) : dispatch(m_first, priority, provider);
    }
    processor::ProviderResult retrieveSecondProvider(const core::BasePriority& priority,
                                                     boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        return m_bOnlySecond ? processor::ProviderResult::none() : dispatch(m_second, priority, provider);
    }

private:
    template <class TValues>
    static bool hasOnlySecond(const TValues& values)
    {
        return TDerived::OnlySecond::holds(values) || TDerived::NothingFirst::holds(values);
    }
    template <class TValue>
    static bool isThere(const TValue& value)
    {
        if constexpr (requires { value != nullptr; }) {
            return value != nullptr;
        } else {
            return true;
        }
    }
    template <class TStage>
    processor::ProviderResult dispatch(TStage& stage, const core::BasePriority& priority,
                                       boost::shared_ptr<core::BaseActionProvider>& provider)
    {
        return stage.dispatch(this->accessOwnAttributes(), this->getDispatchPolicy(), priority, provider);
    }

    TFirst m_first;
    TSecond m_second;
    bool m_bOnlySecond = false; ///< of the run under way
};

} // namespace orlix::imaproc
