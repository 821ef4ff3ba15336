#include "support/SetTable.h"

#include "support/Table.h"

#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <ostream>

namespace orlix::bench {

namespace {

std::string shareText(const std::optional<Share>& share)
{
    return share ? toText(*share) : "-";
}

/// Names of the sets whose rate is below plain code's.
std::string findSlowSets(const ComparisonResult& result)
{
    const Series* const plain = result.find(core::getInstructionSetName(eInstructionSet::eNone));
    std::string slow;
    for (const Series& series : result.getSeries()) {
        if (plain != nullptr && series.role == eRole::eOperator) {
            const Share share = *result.getShare(series, plain);
            if (share.median + share.spread < 1) {
                slow += (slow.empty() ? "" : ", ") + series.name + ' ' + toText(share);
            }
        }
    }
    return slow;
}

} // namespace

void printSetTable(std::ostream& stream, const Suite& suite, const std::vector<std::string>& names)
{
    const char* const widest = core::getInstructionSetName(core::getAvailableInstructionSets().back());
    stream << "\nall cases, with " << widest << "\n";
    Table table({"", "a pass", "GB/s", "of ordinary loop", "of best loop", "of OpenCV", "sets slower than plain"});
    for (const std::string& name : names) {
        const ComparisonResult* const result = suite.find(name);
        if (result == nullptr) {
            continue;
        }
        const Series& series = *result->find(widest);
        table.addRow(
            {name, secondsToText(result->getSeconds(series)), toText(result->getRate(series) * 1e-9, 1),
             shareText(result->getShare(series, result->findFastest({eRole::eOrdinaryLoop}))),
             shareText(result->getShare(series, result->findFastest({eRole::eOrdinaryLoop, eRole::eStreamingLoop}))),
             shareText(result->getShare(series, result->find("OpenCV"))), findSlowSets(*result)});
    }
    table.print(stream);
}

} // namespace orlix::bench
