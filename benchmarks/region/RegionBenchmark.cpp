// Regions taken out and put in, in given images, beside rows of memcpy, bare loops over as many bytes, and OpenCV.
#include "region/RegionFixture.h"
#include "support/DataPlace.h"
#include "support/FlowLimits.h"
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

void addComparison(Suite& suite, const RegionCase& work, unsigned long nbThreads)
{
    const auto fixture = std::make_shared<RegionFixture>(work, nbThreads);
    const unsigned long bytes = work.getBytes();
    const std::string name = nameRegion(work, nbThreads);
    Comparison comparison(name + ": " + bytesToText(bytes) + " read and written, " +
                              describe(findDataPlace(bytes, nbThreads)),
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
    comparison.add({"memcpy a row", eRole::eOther, [fixture] { fixture->copyRows(); }});
    if (hasOpenCv()) {
        comparison.add({"OpenCV", eRole::ePeer, [fixture] { fixture->runPeer(); }});
    }
    const unsigned long element = image::elementSize(work.type);
    addFlowLimits(
        comparison, [fixture]() -> const FlowWork& { return fixture->getWork(); }, element, element);
    suite.add(name, std::move(comparison));
}

void fillSuite(Suite& suite)
{
    benchmark::AddCustomContext("peer", describeOpenCv());
    const unsigned long nbThreads = core::getNbUsableThreads();
    std::vector<std::string> names;
    for (const RegionCase& work : makeRegionCases()) {
        const unsigned long nbUsed = work.size.bAllThreads ? nbThreads : 1;
        addComparison(suite, work, nbUsed);
        names.push_back(nameRegion(work, nbUsed));
    }
    suite.addEnd([names](std::ostream& stream, const Suite& all) { printSetTable(stream, all, names); });
}

} // namespace

} // namespace orlix::bench

int main(int argc, char** argv)
{
    return orlix::bench::runSuite(argc, argv, orlix::bench::fillSuite);
}
