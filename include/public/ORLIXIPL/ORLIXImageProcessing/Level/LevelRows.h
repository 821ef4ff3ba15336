// The rows of a level: each pairs an attribute of the level with how it is cut and with the attribute of the level
// below that the pieces go to.
//
// A row has
//     using Attribute = <own attribute>;   using LowerAttribute = <that of the level below>;
//     template <class TLower> using Split = <the split that feeds it>;                       // void: nothing goes down
//     struct State {…};                                          // what a run needs between dispatch and end; optional
//     static void prepare(const TAttributes& own);                        // sets what is not set; optional
//     static <source> source(const TAttributes& own, State& state);       // what the split is set up with
//     static void finish(const TAttributes& own, State& state);           // after the run; optional
//     static void clear(State& state);                                    // lets go of what is too large; optional
// and, for calls that go straight to level 3 (see StraightRun.h),
//     static bool isStraight(const TValues& values, unsigned long stripBytes);
//     static decltype(auto) take(const TValues& values);                  // what the lower attribute gets
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AttributeValues.h"
#include "ORLIX/ORLIXBaseProcessing/RuleTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/StraightImages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/DataSplitSources.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageSplitSources.h"

namespace orlix::imaproc {

/// A level's attribute that nothing below needs.
template <class TAttribute>
struct Kept
{
    using Attribute = TAttribute;
    using LowerAttribute = void;
    template <class TLower>
    using Split = void;

    template <class TValues>
    static bool isStraight(const TValues&, unsigned long)
    {
        return true;
    }
};

/// Where elements run is decided with this image in mind.
struct Placed
{
    template <class TAttributes>
    static bool isLocalized(const TAttributes&)
    {
        return true;
    }
};
/// The same unless the image of attribute `TOutput` wants its input's place left out.
template <class TOutput>
struct PlacedFor
{
    template <class TAttributes>
    static bool isLocalized(const TAttributes& attributes)
    {
        return !processor::own<TOutput>(attributes)->getImage().needsUnlocalizedInput();
    }
};

namespace details {

template <class TAttribute, class TLowerAttribute>
struct ImageRow
{
    using Attribute = TAttribute;
    using LowerAttribute = TLowerAttribute;

    template <class TValues>
    static auto take(const TValues& values)
    {
        return processor::pointerTo(values.template get<TAttribute>());
    }
};

template <class TAttribute>
using ImageOf = typename TAttribute::StorageType::element_type;

} // namespace details

/// The image plan by plan.
template <class TAttribute, class TLowerAttribute = TAttribute, class TPlacement = Placed>
struct ByPlan : details::ImageRow<TAttribute, TLowerAttribute>
{
    template <class TLower>
    using Split = SubImageSplit<TLower, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return planByPlan(processor::own<TAttribute>(attributes)->getStorage(), TPlacement::isLocalized(attributes));
    }
    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long)
    {
        return isOneHostPlan(processor::pointerTo(values.template get<TAttribute>()));
    }
};

/// The image volume by volume.
template <class TAttribute, class TLowerAttribute = TAttribute, class TPlacement = Placed>
struct ByVolume : details::ImageRow<TAttribute, TLowerAttribute>
{
    template <class TLower>
    using Split = SubImageSplit<TLower, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return volumeByVolume(processor::own<TAttribute>(attributes)->getStorage(),
                              TPlacement::isLocalized(attributes));
    }
    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long)
    {
        return isOneHostVolume(processor::pointerTo(values.template get<TAttribute>()));
    }
};

/// The plan in strips, which are ranges of its lines.
template <class TAttribute, class TLowerAttribute, class TPlacement = Placed>
struct ByYStrip : details::ImageRow<TAttribute, TLowerAttribute>
{
    template <class TLower>
    using Split = ImageYStrip2dSplit<TLower, details::ImageOf<TAttribute>, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return stripByStrip(processor::own<TAttribute>(attributes)->getStorage(), TPlacement::isLocalized(attributes));
    }
    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long stripBytes)
    {
        const auto* const plan = processor::pointerTo(values.template get<TAttribute>());
        return isOneHostPlan(plan) && isOneStrip(*plan, stripBytes);
    }
};

/// The volume in strips, which are ranges of its plans.
template <class TAttribute, class TLowerAttribute, class TPlacement = Placed>
struct ByZStrip : details::ImageRow<TAttribute, TLowerAttribute>
{
    template <class TLower>
    using Split = ImageZStrip3dSplit<TLower, details::ImageOf<TAttribute>, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return stripByStrip(processor::own<TAttribute>(attributes)->getStorage(), TPlacement::isLocalized(attributes));
    }
    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long stripBytes)
    {
        const auto* const volume = processor::pointerTo(values.template get<TAttribute>());
        return isOneHostVolume(volume) &&
               isOneStrip({0, volume->getSizeZ()}, volume->getSizeZ(), planBytesOf(*volume), stripBytes);
    }
};

/// A range of lines of the plan in strips. `TRange::of(values)` tells it, as a StripRange.
template <class TAttribute, class TLowerAttribute, class TRange>
struct ByYSubStrip
{
    using Attribute = TAttribute;
    using LowerAttribute = TLowerAttribute;
    template <class TLower>
    using Split = ImageYSubStrip2dSplit<TLower, details::ImageOf<TAttribute>, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        const StripRange range = TRange::of(processor::heldValues(attributes));
        return subStripByStrip(processor::own<TAttribute>(attributes)->getStorage(), range.start, range.size, true,
                               range.lineBytes);
    }
    /// Strips of a part are for kernels that write no further than their count, so the plan may lie anyhow.
    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long stripBytes)
    {
        const auto* const plan = processor::pointerTo(values.template get<TAttribute>());
        return isOneHostPlan(plan) && isOneStrip(TRange::of(values), plan->getSizeY(), lineBytesOf(*plan), stripBytes);
    }
    template <class TValues>
    static auto take(const TValues& values)
    {
        const StripRange range = TRange::of(values);
        return StripPart<details::ImageOf<TAttribute>>{processor::pointerTo(values.template get<TAttribute>()),
                                                       range.start, range.size};
    }
};

/// A range of plans of the volume in strips, told in the same way.
template <class TAttribute, class TLowerAttribute, class TRange>
struct ByZSubStrip : ByYSubStrip<TAttribute, TLowerAttribute, TRange>
{
    template <class TLower>
    using Split = ImageZSubStrip3dSplit<TLower, details::ImageOf<TAttribute>, TLowerAttribute>;

    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long stripBytes)
    {
        const auto* const volume = processor::pointerTo(values.template get<TAttribute>());
        return isOneHostVolume(volume) &&
               isOneStrip(TRange::of(values), volume->getSizeZ(), planBytesOf(*volume), stripBytes);
    }
};

/// For every plan, or volume, its entry of a collection that is indexed by plan.
template <class TAttribute, class TLowerAttribute>
struct EntryByPlan
{
    using Attribute = TAttribute;
    using LowerAttribute = TLowerAttribute;
    template <class TLower>
    using Split = PlanIndexedSplit<TLower, typename TAttribute::StorageType, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return entryByPlan(processor::own<TAttribute>(attributes)->getStorage());
    }
};

/// As the last argument of a row for an optional data item: one that is not set is set to `g_make()`, and stays so.
template <auto g_make>
struct OrElse
{
    static const auto& value()
    {
        static const auto g_value = g_make();
        return g_value;
    }
};
/// What is not set has the default of its class.
struct AsSet
{};

namespace details {

/// The same value for every element below.
template <class TAttribute, class TLowerAttribute, class TDefault>
struct SameForAllRow
{
    using Attribute = TAttribute;
    using LowerAttribute = TLowerAttribute;

    template <class TAttributes>
    static void prepare(const TAttributes& attributes)
    {
        if constexpr (g_bDefault) {
            TAttribute& attribute = *processor::own<TAttribute>(attributes);
            if (!attribute.isSet()) {
                attribute.init(typename TAttribute::StorageType(TDefault::value()));
            }
        }
    }
    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return sameForAll(processor::storageOf(*processor::own<TAttribute>(attributes)));
    }

    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long)
    {
        if constexpr (std::is_pointer_v<std::remove_cvref_t<decltype(take(values))>>) {
            return take(values) != nullptr;
        } else {
            return true;
        }
    }
    template <class TValues>
    static auto take(const TValues& values)
    {
        if constexpr (isLeftOut<TValues>()) {
            return processor::pointerTo(TDefault::value());
        } else {
            return processor::pointerTo(values.template get<TAttribute>());
        }
    }

private:
    static constexpr bool g_bDefault = !std::is_same_v<TDefault, AsSet>;

    template <class TValues>
    static constexpr bool isLeftOut()
    {
        if constexpr (g_bDefault) {
            return !TValues::template isGiven<TAttribute>();
        } else {
            return false;
        }
    }
};

} // namespace details

/// The same value for every plan or volume.
template <class TAttribute, class TLowerAttribute = TAttribute, class TDefault = AsSet>
struct SameForPlans : details::SameForAllRow<TAttribute, TLowerAttribute, TDefault>
{
    template <class TLower>
    using Split = processor::StaticNoSplit<TLower, TLowerAttribute>;
};

/// The same value for every strip.
template <class TAttribute, class TLowerAttribute = TAttribute, class TDefault = AsSet>
struct SameForStrips : details::SameForAllRow<TAttribute, TLowerAttribute, TDefault>
{
    template <class TLower>
    using Split = processor::DynamicNoSplit<TLower, TLowerAttribute>;
};

} // namespace orlix::imaproc
