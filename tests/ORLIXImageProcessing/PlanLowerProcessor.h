// A level below plan-indexed splits: it writes down the note that it was given for its plan.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"
#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <map>
#include <mutex>
#include <utility>

namespace orlix::imaproc::test {

struct NoteRecord
{
    static constexpr const char* g_className = "orlix::imaproc::test::Note";
    unsigned long number = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("number", &NoteRecord::number);
    }
};
class Note final : public DataItemNode<Note, NoteRecord>
{};
using Notes = PlanIndexedColl<Note>;

struct InOptNote final : processor::NamedAttribute<InOptNote, processor::BaseInputOptionalDataItemAttribute<Note>>
{
    static constexpr const char* g_name = "InOptNote";
    static constexpr const char* g_toolTip = "A note that comes in";
};
struct OutNote final : processor::NamedAttribute<OutNote, processor::BaseOutputDataItemAttribute<Note>>
{
    static constexpr const char* g_name = "OutNote";
    static constexpr const char* g_toolTip = "A note that comes out";
    bool isOptional() const override { return true; }
};

/// Writes twice the number of the note that comes in, and one more, to the note that comes out; tells by plan, which it
/// knows by the place of the plan's pixels, what came in.
class NoteProcessor final : public processor::Scaffold<NoteProcessor, processor::BaseSyncProcessor, PictureLibrary,
                                                       InPicture, InOptNote, OutNote>
{
public:
    static constexpr processor::ProcessorText g_text{"NoteProcessor", 0, "PlanLowerProcessor.h"};

    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

    static constexpr unsigned long g_none = ~0UL;

    /// By the place of a plan's pixels, the number that came in with it, or `g_none`.
    static std::map<const void*, unsigned long> takeSeen()
    {
        const std::lock_guard<std::mutex> lock(mutex());
        return std::exchange(seen(), {});
    }

protected:
    ProcessingResult<bool> mainProcess() override
    {
        const bool bHeld = accessAttribute<InOptNote>()->isHeld();
        const unsigned long number = bHeld ? accessAttribute<InOptNote>()->getDataItemNode().number : g_none;
        if (accessAttribute<OutNote>()->isHeld()) {
            accessAttribute<OutNote>()->getDataItemNode().number = bHeld ? 2 * number + 1 : number;
        }
        const std::lock_guard<std::mutex> lock(mutex());
        seen()[accessAttribute<InPicture>()->getImage().accessRow(0, 0, 0, 0)] = number;
        return true;
    }

private:
    static std::mutex& mutex()
    {
        static std::mutex g_mutex;
        return g_mutex;
    }
    static std::map<const void*, unsigned long>& seen()
    {
        static std::map<const void*, unsigned long> g_seen;
        return g_seen;
    }
};

} // namespace orlix::imaproc::test
