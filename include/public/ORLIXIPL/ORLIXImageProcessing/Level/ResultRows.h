// Rows of results that every plan or strip has one of, merged into the level's own after the run.
//
// A result class has `reset()`, as new; `bool merge(const Result& part)`, which takes `part` in and returns whether a
// position of it was taken over; and, for results of plans, `void placeIn(const PlanIndex& plan)`, which completes such
// a position.
#pragma once

#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/LevelRows.h"

namespace orlix::imaproc {

/// A result for each plan of the image of attribute `TImage`, merged in the order of the plans, z fastest.
template <class TAttribute, class TImage, class TLowerAttribute = TAttribute>
struct MergedByPlan
{
    using Attribute = TAttribute;
    using LowerAttribute = TLowerAttribute;
    using Result = typename TAttribute::StorageType::element_type;
    using Results = boost::shared_ptr<PlanIndexedColl<Result>>;
    template <class TLower>
    using Split = PlanIndexedSplit<TLower, Results, TLowerAttribute>;

    /// Results are kept, since most runs have as many plans as the one before.
    struct State
    {
        Results results;
        PlanIndex sizes; ///< for which they were made
    };

    template <class TAttributes>
    static auto source(const TAttributes& attributes, State& state)
    {
        const image::BaseImage& image = processor::own<TImage>(attributes)->getImage();
        const PlanIndex sizes(image.getSizeZ(), image.getSizeC(), image.getSizeT());
        if (!state.results || state.sizes != sizes) {
            state.results = boost::make_shared<PlanIndexedColl<Result>>();
            state.results->initPlanIndexed(sizes.z, sizes.c, sizes.t);
            state.sizes = sizes;
        } else {
            for (unsigned long i = 0; i < state.results->size(); ++i) {
                state.results->getItem(i)->reset();
            }
        }
        return entryByPlan(state.results, image);
    }
    template <class TAttributes>
    static void finish(const TAttributes& attributes, State& state)
    {
        Result& whole = processor::own<TAttribute>(attributes)->getDataItemNode();
        whole.reset();
        for (unsigned long i = 0; i < state.results->size(); ++i) {
            if (whole.merge(*state.results->getItem(i))) {
                whole.placeIn(state.results->getPlanIndex(i));
            }
        }
    }
    static void clear(State& state)
    {
        constexpr unsigned long maxKept = 1024;
        if (state.results && state.results->size() > maxKept) {
            state.results.reset();
        }
    }

    template <class TValues>
    static bool isStraight(const TValues& values, unsigned long)
    {
        return values.template get<TAttribute>() != nullptr;
    }
    template <class TValues>
    static Result* take(const TValues& values)
    {
        return processor::pointerTo(values.template get<TAttribute>());
    }
    template <class TValues>
    static void finishStraight(const TValues& values)
    {
        values.template get<TAttribute>()->placeIn(PlanIndex(0, 0, 0));
    }
};

/// A result for each strip, merged in the order of the strips.
template <class TAttribute, class TLowerAttribute = TAttribute>
struct MergedByStrip
{
    using Attribute = TAttribute;
    using LowerAttribute = TLowerAttribute;
    using Result = typename TAttribute::StorageType::element_type;
    template <class TLower>
    using Split = processor::DynamicByCreationResultSplit<TLower, TLowerAttribute>;

    struct State
    {
        processor::CreationResultMap<Result> results;
    };

    template <class TAttributes>
    static auto source(const TAttributes&, State& state)
    {
        return resultByRange(state.results);
    }
    template <class TAttributes>
    static void finish(const TAttributes& attributes, State& state)
    {
        Result& plan = processor::own<TAttribute>(attributes)->getDataItemNode();
        plan.reset();
        for (const auto& [range, strip] : state.results) {
            plan.merge(*strip);
        }
    }
    static void clear(State& state) { state.results.clear(); }

    template <class TValues>
    static bool isStraight(const TValues&, unsigned long)
    {
        return true;
    }
    template <class TValues>
    static Result* take(const TValues& values)
    {
        return processor::pointerTo(values.template get<TAttribute>());
    }
};

} // namespace orlix::imaproc
