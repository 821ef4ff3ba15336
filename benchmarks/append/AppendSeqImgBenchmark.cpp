// appendSeqImg in its three forms, beside two calls of copyImg, memcpy and bare loops over the same bytes.
#include "append/AppendFixture.h"
#include "support/DataPlace.h"
#include "support/FlowLimits.h"
#include "support/ForcedSet.h"
#include "support/SetTable.h"
#include "support/Suite.h"
#include "support/Table.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <cstring>
#include <memory>

namespace orlix::bench {

namespace {

using image::eImageBufferType;

constexpr eImageBufferType::domain g_types[] = {eImageBufferType::UInt8, eImageBufferType::Real32};

void copyByLibrary(const std::byte* source, std::byte* destination, unsigned long, unsigned long bytesWritten)
{
    std::memcpy(destination, source, bytesWritten);
}

std::string addComparison(Suite& suite, const AppendCase& work, const eImageBufferType& type, unsigned long nbThreads)
{
    const auto fixture = std::make_shared<AppendFixture>(work, type, nbThreads);
    const unsigned long size = image::elementSize(type);
    const unsigned long bytes = 4 * work.sizeX * work.sizeY * work.sizeT * size;
    const std::string name = std::string("append/") + image::getBufferTypeName(type) + '/' + work.name +
                             "/threads:" + std::to_string(nbThreads);
    Comparison comparison(name + ": " + bytesToText(bytes) + " read and written, " +
                              describe(findDataPlace(bytes, nbThreads)),
                          nbThreads == 1 ? eClock::eThreadTime : eClock::eWall, bytes);
    comparison.setFixture([fixture] { fixture->setUp(); },
                          [fixture] {
                              fixture->tearDown();
                              unforceSet();
                          });
    const std::vector<eInstructionSet> sets = suite.getOptions().selectInstructionSets();
    for (const eInstructionSet& set : sets) {
        comparison.add({core::getInstructionSetName(set), eRole::eOperator, [fixture] { fixture->appendToGiven(); },
                        [set] { forceSet(set); }});
    }
    const auto widest = [set = sets.back()] { forceSet(set); };
    comparison.add({"new", eRole::eOther, [fixture] { fixture->appendToNew(); }, widest});
    comparison.add({"in-place", eRole::eOther, [fixture] { fixture->appendInPlace(); }, widest});
    comparison.add({"two-copies", eRole::eOther, [fixture] { fixture->copyHalves(); }, widest});
    comparison.add({"memcpy", eRole::ePeer, [fixture] { fixture->getWork().forEachStretch(copyByLibrary); }});
    addFlowLimits(
        comparison, [fixture]() -> const FlowWork& { return fixture->getWork(); }, size, size);
    suite.add(name, std::move(comparison));
    return name;
}

void fillSuite(Suite& suite)
{
    const unsigned long nbThreads = core::getNbUsableThreads();
    std::vector<std::string> names;
    for (const AppendCase& work : g_appendCases) {
        for (const eImageBufferType type : g_types) {
            names.push_back(addComparison(suite, work, type, work.bAllThreads ? nbThreads : 1));
        }
    }
    suite.addEnd([names](std::ostream& stream, const Suite& all) { printSetTable(stream, all, names); });
}

} // namespace

} // namespace orlix::bench

int main(int argc, char** argv)
{
    return orlix::bench::runSuite(argc, argv, orlix::bench::fillSuite);
}
