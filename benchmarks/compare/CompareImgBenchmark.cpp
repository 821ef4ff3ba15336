// compareImg on equal images in every mode, beside bare loops that read them, memcmp, OpenCV, and NumPy's way.
#include "compare/CompareFixture.h"
#include "support/DataPlace.h"
#include "support/ForcedSet.h"
#include "support/SetTable.h"
#include "support/Suite.h"
#include "support/Table.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace orlix::bench {

namespace {

using FixturePtr = std::shared_ptr<CompareFixture>;

void addLimits(Comparison& comparison, const FixturePtr& fixture)
{
    const FlowLoops& loops = selectFlowLoops(1, 0);
    const auto add = [&](const char* name, FlowLoop loop) {
        comparison.add({name, eRole::eOrdinaryLoop, [fixture, loop] { fixture->runLoop(loop); }});
    };
    add("loop/read", loops.ordinary);
    add("loop/read-blocks", loops.ordinaryBlocks);
    add("loop/read-ahead", loops.ordinaryAhead);
}

void addComparison(Suite& suite, const CompareCase& work, const CompareSize& size, unsigned long nbThreads)
{
    const auto fixture = std::make_shared<CompareFixture>(work, size, nbThreads);
    const unsigned long bytes = 2 * size.sizeX * size.sizeY * image::elementSize(work.type);
    const std::string name = nameComparison(work, size, nbThreads);
    Comparison comparison(name + ": " + bytesToText(bytes) + " read, " + describe(findDataPlace(bytes, nbThreads)),
                          nbThreads == 1 ? eClock::eThreadTime : eClock::eWall, bytes);
    comparison.setFixture([fixture] { fixture->setUp(); },
                          [fixture] {
                              fixture->tearDown();
                              unforceSet();
                          });
    for (const eInstructionSet& set : suite.getOptions().selectInstructionSets()) {
        comparison.add({core::getInstructionSetName(set), eRole::eOperator, [fixture] { fixture->runOperator(); },
                        [set] { forceSet(set); }});
    }
    if (fixture->hasPeer()) {
        comparison.add({"OpenCV", eRole::ePeer, [fixture] { fixture->runPeer(); }});
    }
    if (fixture->hasArrays()) {
        comparison.add({"array passes", eRole::eOther, [fixture] { fixture->runArrays(); }});
    }
    comparison.add({"memcmp", eRole::eOther, [fixture] { fixture->runLibrary(); }});
    addLimits(comparison, fixture);
    suite.add(name, std::move(comparison));
}

void fillSuite(Suite& suite)
{
    benchmark::AddCustomContext("peer", describeOpenCv());
    const unsigned long nbThreads = core::getNbUsableThreads();
    std::vector<std::string> names;
    for (const CompareSize& size : g_compareSizes) {
        for (const CompareCase& work : makeCompareCases()) {
            addComparison(suite, work, size, size.bAllThreads ? nbThreads : 1);
            names.push_back(nameComparison(work, size, size.bAllThreads ? nbThreads : 1));
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
