#include "copy/CopyGoals.h"

#include "copy/CopyCases.h"
#include "support/DataPlace.h"
#include "support/Suite.h"
#include "support/Table.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <ostream>

namespace orlix::bench {

namespace {

constexpr const CopyCase& g_call = g_copyCases[0];
constexpr const CopyCase& g_inLastLevel = g_copyCases[2];
constexpr const CopyCase& g_plan = g_copyCases[3];
constexpr const CopyCase& g_stack = g_copyCases[4];

/// What the library takes where nothing is forced.
const char* getWidestSetName()
{
    return core::getInstructionSetName(core::getAvailableInstructionSets().back());
}

/// The median alone decides; whoever reads sees by the spread how much that is worth.
void addShare(Table& table, const std::string& goal, double wanted, const std::optional<Share>& found)
{
    const std::string bound = "at least " + toText(wanted, 2);
    if (found) {
        table.addRow({goal, bound, toText(*found), found->median >= wanted ? "met" : "missed"});
    } else {
        table.addRow({goal, bound, "-", "not measured"});
    }
}

void addBeyond(Table& table, const Suite& suite, const CopyCase& copyCase, unsigned long nbThreads)
{
    const std::string goal = std::string(copyCase.size) + ", given output, all threads: of the best loop";
    const eDataPlace place = findDataPlace(getCopyBytes(copyCase), nbThreads);
    if (place != eDataPlace::eBeyond) {
        table.addRow({goal, "-", "-", std::string("not beyond the cache, but ") + describe(place)});
        return;
    }
    std::optional<Share> found;
    if (const ComparisonResult* result = suite.find(nameComparison(copyCase, nbThreads))) {
        found = result->getShare(*result->find(nameGiven(getWidestSetName())),
                                 result->findFastest({eRole::eOrdinaryLoop, eRole::eStreamingLoop}));
    }
    addShare(table, goal, 0.90, found);
}

void addInLastLevel(Table& table, const Suite& suite, unsigned long nbThreads)
{
    std::optional<Share> found;
    if (const ComparisonResult* result = suite.find(nameComparison(g_inLastLevel, nbThreads))) {
        found =
            result->getShare(*result->find(nameGiven(getWidestSetName())), result->findFastest({eRole::eOrdinaryLoop}));
    }
    addShare(table, std::string(g_inLastLevel.size) + ", given output, all threads: of the best ordinary loop", 0.95,
             found);
}

void addNewOutput(Table& table, const Suite& suite, unsigned long nbThreads)
{
    std::optional<Share> found;
    if (const ComparisonResult* result = suite.find(nameComparison(g_plan, nbThreads))) {
        found =
            result->getShare(*result->find(nameNew(getWidestSetName())), result->find(nameGiven(getWidestSetName())));
    }
    addShare(table, std::string(g_plan.size) + ", new output from the second call on: of the given output's rate", 0.85,
             found);
}

void addCall(Table& table, const Suite& suite)
{
    constexpr double wanted = 90e-9;
    const std::string goal = std::string(g_call.size) + ", given output, one thread: the whole call";
    const std::string bound = "at most " + secondsToText(wanted);
    if (const ComparisonResult* result = suite.find(nameComparison(g_call, 1))) {
        const double found = result->getSeconds(*result->find(nameGiven(getWidestSetName())));
        table.addRow({goal, bound, secondsToText(found), found <= wanted ? "met" : "missed"});
    } else {
        table.addRow({goal, bound, "-", "not measured"});
    }
}

} // namespace

void printCopyGoals(std::ostream& stream, const Suite& suite)
{
    const unsigned long nbThreads = core::getNbUsableThreads();
    stream << "\ngoals of copyImg, with " << getWidestSetName() << "\n";
    Table table({"", "wanted", "found", ""});
    addBeyond(table, suite, g_plan, nbThreads);
    addBeyond(table, suite, g_stack, nbThreads);
    addInLastLevel(table, suite, nbThreads);
    addNewOutput(table, suite, nbThreads);
    addCall(table, suite);
    table.print(stream);
}

} // namespace orlix::bench
