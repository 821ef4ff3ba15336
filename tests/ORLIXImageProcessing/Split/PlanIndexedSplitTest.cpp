// Entries of a collection by plan: each to the element of its plan, and what is said of plans without one.
#include "ORLIXIPL/ORLIXImageProcessing/Split/PlanIndexedSplit.h"

#include "ORLIXCore/TestActions.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"
#include "ORLIXImageProcessing/PlanLowerProcessor.h"
#include "ORLIXImageProcessing/StripProcessors.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

struct OtherNoteRecord
{
    static constexpr const char* g_className = "orlix::imaproc::test::OtherNote";
    double weight = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("weight", &OtherNoteRecord::weight);
    }
};
class OtherNote final : public DataItemNode<OtherNote, OtherNoteRecord>
{};

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using NotesPtr = boost::shared_ptr<Notes>;
using NotesConstPtr = boost::shared_ptr<const Notes>;
using InSplit = PlanIndexedSplit<NoteProcessor, NotesConstPtr, InOptNote>;
using OutSplit = PlanIndexedSplit<NoteProcessor, NotesPtr, OutNote>;
using Way = StaticDispatch<NoteProcessor, SubImageSplit<NoteProcessor, InPicture>, InSplit, OutSplit>;

unsigned long numberOf(const PlanIndex& plan)
{
    return 100 * plan.t + 10 * plan.c + plan.z;
}

/// A note for each of the plans, in that order.
NotesPtr notesFor(const std::vector<PlanIndex>& plans)
{
    auto notes = boost::make_shared<Notes>();
    for (const PlanIndex& plan : plans) {
        auto note = boost::make_shared<Note>();
        note->number = numberOf(plan);
        notes->insert(plan, note);
    }
    return notes;
}

std::vector<PlanIndex> plansOf(unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT)
{
    std::vector<PlanIndex> plans;
    for (unsigned long t = 0; t < sizeT; ++t) {
        for (unsigned long c = 0; c < sizeC; ++c) {
            for (unsigned long z = 0; z < sizeZ; ++z) {
                plans.emplace_back(z, c, t);
            }
        }
    }
    return plans;
}

/// Sets up on a collection that lives until the end of the statement.
template <class TSplit, class TCollPtr>
std::string setUp(TSplit& split, const TCollPtr& coll, unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT,
                  bool bMayLack = false)
{
    return failureOf(split.initBase(coll, sizeZ, sizeC, sizeT, bMayLack));
}

TEST(PlanIndexedSplit, EveryPlanGetsItsEntryOnEveryExecutor)
{
    const ImageConstPtr image = createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, 3, 2, 4));
    const std::vector<PlanIndex> plans = plansOf(3, 2, 4);
    for (const auto& order : {plans, std::vector<PlanIndex>(plans.rbegin(), plans.rend())}) {
        for (const NamedExecutor& each : makeAllExecutors()) {
            SCOPED_TRACE(each.name);
            const NotesConstPtr in = notesFor(order);
            const NotesPtr out = boost::make_shared<Notes>();
            out->initPlanIndexed(3, 2, 4);
            Way way;
            boost::shared_ptr<core::BaseActionProvider> provider;
            const auto result = way.dispatch(core::BasePriority(), provider, planByPlan(image), entryByPlan(in, *image),
                                             entryByPlan(out));
            ASSERT_EQ(result.status, processor::eProviderStatus::eProviderReady) << std::string(result.message);
            ASSERT_EQ(failureOf(core::runOn(*each.executor, *provider)), "no failure");
            const std::map<const void*, unsigned long> seen = NoteProcessor::takeSeen();
            EXPECT_EQ(seen.size(), 24u);
            for (const PlanIndex& plan : order) {
                EXPECT_EQ(seen.at(image->accessRow(0, plan.z, plan.c, plan.t)), numberOf(plan)) << plan;
                EXPECT_EQ(out->find(plan)->number, 2 * numberOf(plan) + 1) << plan;
            }
        }
    }
}

TEST(PlanIndexedSplit, APlanThatMayLackAnEntryGetsNone)
{
    const ImageConstPtr image = createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, 2, 2, 1));
    const NotesPtr notes = notesFor({{1, 1, 0}, {0, 0, 0}});
    notes->insert({1, 0, 0}, nullptr);
    const NotesConstPtr in = notes;
    const NotesPtr out = notesFor({});
    Way way;
    for (int repetition = 0; repetition < 2; ++repetition) { // the second with processors that had one
        boost::shared_ptr<core::BaseActionProvider> provider;
        const auto result = way.dispatch(core::BasePriority(), provider, planByPlan(image),
                                         entryByPlan(in, *image, true), entryByPlan(out, *image, true));
        ASSERT_EQ(result.status, processor::eProviderStatus::eProviderReady) << std::string(result.message);
        ASSERT_EQ(failureOf(core::runOn(core::accessExecutor(), *provider)), "no failure");
        const std::map<const void*, unsigned long> seen = NoteProcessor::takeSeen();
        EXPECT_EQ(seen.at(image->accessRow(0, 0, 0, 0)), 0u);
        EXPECT_EQ(seen.at(image->accessRow(0, 1, 0, 0)), NoteProcessor::g_none) << "a null entry is none";
        EXPECT_EQ(seen.at(image->accessRow(0, 0, 1, 0)), NoteProcessor::g_none);
        EXPECT_EQ(seen.at(image->accessRow(0, 1, 1, 0)), 11u);
    }
}

TEST(PlanIndexedSplit, AMissingEntryIsNamed)
{
    InSplit split;
    const NotesConstPtr notes = notesFor({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {5, 5, 5}});
    EXPECT_EQ(setUp(split, notes, 2, 2, 1),
              "InOptNote has no entry for plan 1 of channel 1 at time 0: every plan needs one");
    EXPECT_EQ(split.getElementDemand().nbElements, 0u);
    EXPECT_EQ(setUp(split, notes, 2, 1, 1), "no failure") << "entries of other plans are left out";
    EXPECT_EQ(split.getElementDemand().nbElements, 2u);
    EXPECT_EQ(setUp(split, notes, 2, 2, 1, true), "no failure");

    const NotesPtr withNull = notesFor({{0, 0, 0}});
    withNull->insert({1, 0, 0}, nullptr);
    const NotesConstPtr held = withNull;
    EXPECT_EQ(setUp(split, held, 2, 1, 1), "no failure");
    const auto lower = makeInitialised<NoteProcessor>();
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 1, core::BaseRequestOrigin(1))),
              "InOptNote has no entry for plan 1 of channel 0 at time 0: every plan needs one");
}

TEST(PlanIndexedSplit, RefusesWhatItCannotCount)
{
    InSplit split;
    const NotesConstPtr nothing;
    EXPECT_EQ(setUp(split, nothing, 1, 1, 1),
              "There is no collection to take the entries of plans from: set the attribute that holds it");
    EXPECT_EQ(failureOf(entryByPlan(nothing).init(split)),
              "There is no collection to take the entries of plans from: set the attribute that holds it");
    const NotesConstPtr notes = notesFor({});
    EXPECT_EQ(setUp(split, notes, 1UL << 32, 1UL << 31, 2, true),
              "4294967296 plans of 2147483648 channels at 2 times are more than can be counted");
    EXPECT_EQ(split.getElementDemand().nbElements, 0u);
    EXPECT_EQ(setUp(split, notes, 1UL << 32, 1UL << 32, 0), "no failure") << "no plans at all";
}

TEST(PlanIndexedSplit, WithoutPlansThereAreNoElements)
{
    InSplit split;
    const NotesConstPtr notes = notesFor({});
    for (const auto& [sizeZ, sizeC, sizeT] : {std::tuple{0, 2, 2}, std::tuple{2, 0, 2}, std::tuple{2, 2, 0}}) {
        EXPECT_EQ(setUp(split, notes, sizeZ, sizeC, sizeT), "no failure");
        EXPECT_EQ(split.getElementDemand().nbElements, 0u);
    }
    const auto lower = makeInitialised<NoteProcessor>();
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 0, core::BaseRequestOrigin(0))),
              "There is no element 0 in a list of 0");
    EXPECT_EQ(failureOf(entryByPlan(notes).init(split)), "no failure");
    EXPECT_EQ(split.getElementDemand().nbElements, 0u);
}

TEST(PlanIndexedSplit, ACollectionThatDoesNotFitTheImageIsRefused)
{
    const ImageConstPtr image = createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, 3, 1, 1));
    const NotesConstPtr in = notesFor(plansOf(2, 1, 1));
    const NotesPtr out = notesFor(plansOf(3, 1, 1));
    Way way;
    boost::shared_ptr<core::BaseActionProvider> provider;
    const auto result =
        way.dispatch(core::BasePriority(), provider, planByPlan(image), entryByPlan(in), entryByPlan(out, *image));
    EXPECT_EQ(result.status, processor::eProviderStatus::eProviderFailed);
    EXPECT_EQ(
        std::string(result.message),
        "NoteProcessor: all splits must have the same number of elements, but InPicture has 3 and InOptNote has 2");
}

TEST(PlanIndexedSplit, IsSetUpThroughItsBaseWithACollectionOfItsClass)
{
    const NotesPtr notes = notesFor(plansOf(2, 1, 1));
    const boost::shared_ptr<BasePlanIndexedColl> anyColl = notes;
    InSplit inSplit;
    OutSplit outSplit;
    for (BasePlanIndexedSplit* split :
         {static_cast<BasePlanIndexedSplit*>(&inSplit), static_cast<BasePlanIndexedSplit*>(&outSplit)}) {
        EXPECT_EQ(failureOf(split->initBase(anyColl, 2, 1, 1, false)), "no failure");
        EXPECT_EQ(split->getElementDemand().nbElements, 2u);
    }
    const auto lower = makeInitialised<NoteProcessor>();
    EXPECT_EQ(failureOf(outSplit.processAttribute(*lower, 1, core::BaseRequestOrigin(1))), "no failure");
    EXPECT_EQ(lower->getStorage<OutNote>(), notes->getItem(1));
    EXPECT_EQ(failureOf(static_cast<BasePlanIndexedSplit&>(inSplit).initBase(nullptr, 2, 1, 1, false)),
              "There is no collection to take the entries of plans from: set the attribute that holds it");
    const boost::shared_ptr<BasePlanIndexedColl> others = boost::make_shared<PlanIndexedColl<OtherNote>>();
    EXPECT_EQ(
        failureOf(outSplit.initBase(others, 2, 1, 1, true)),
        "OutNote takes no entries of a collection of class orlix::PlanIndexedColl<orlix::imaproc::test::OtherNote>: "
        "give one of the class that the split is made for");
    EXPECT_EQ(outSplit.getElementDemand().nbElements, 0u);
}

TEST(PlanIndexedSplit, FeedsItsAttributeOfItsClass)
{
    OutSplit split;
    EXPECT_EQ(split.getAttributeName(), "OutNote");
    EXPECT_EQ(split.getAttributeToolTip(), "A note that comes out");
    EXPECT_EQ(split.getSplitStaticType(), processor::eSplitStaticType::ePlanIndexedSplit);
    EXPECT_EQ(split.getSplitBaseType(), processor::eSplitBaseType::eStaticSplit);
    EXPECT_TRUE(split.isDataLocalized());
    EXPECT_TRUE(split.checkProcessorType(NoteProcessor()));
    EXPECT_FALSE(split.checkProcessorType(PlanLevel()));
    const NotesPtr notes = notesFor(plansOf(2, 1, 1));
    EXPECT_EQ(setUp(split, notes, 2, 1, 1), "no failure");
    const auto lower = makeInitialised<NoteProcessor>();
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 1, core::BaseRequestOrigin(1))), "no failure");
    EXPECT_EQ(lower->getStorage<OutNote>(), notes->getItem(1)) << "shared, not copied";
    split.clear();
    EXPECT_EQ(notes.use_count(), 1) << "nothing of a run is kept";
}

} // namespace
} // namespace orlix::imaproc::test
