// As many entries as plans are not enough: an entry outside the plans leaves one of them without.
#include "ORLIXIPL/ORLIXImageProcessing/Split/PlanIndexedSplit.h"

#include "ORLIXImageProcessing/PlanLowerProcessor.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

/// A note for each plan of 2 x 2 x 2, but the last of them lies at `last`.
boost::shared_ptr<const Notes> notesWithLast(const PlanIndex& last)
{
    const auto notes = boost::make_shared<Notes>();
    for (unsigned long i = 0; i < 8; ++i) {
        notes->insert(i < 7 ? PlanIndex(i % 2, i / 2 % 2, i / 4) : last, boost::make_shared<Note>());
    }
    return notes;
}

TEST(PlanIndexedSplitBounds, AnEntryOutsideOnAnyAxisIsFoundAtTheSetUp)
{
    PlanIndexedSplit<NoteProcessor, boost::shared_ptr<const Notes>, InOptNote> split;
    const boost::shared_ptr<const Notes> complete = notesWithLast(PlanIndex(1, 1, 1));
    EXPECT_TRUE(split.initBase(complete, 2, 2, 2, false));
    for (const PlanIndex& outside : {PlanIndex(2, 1, 1), PlanIndex(1, 2, 1), PlanIndex(1, 1, 2)}) {
        const boost::shared_ptr<const Notes> notes = notesWithLast(outside);
        EXPECT_FALSE(split.initBase(notes, 2, 2, 2, false)) << outside.z << ", " << outside.c << ", " << outside.t;
        EXPECT_TRUE(split.initBase(notes, 2, 2, 2, true)) << "where plans may lack their entry";
    }
}

} // namespace
} // namespace orlix::imaproc::test
