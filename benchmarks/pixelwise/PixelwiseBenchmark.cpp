// Erase, threshold and type conversion into given images, beside bare loops over the same bytes and beside OpenCV.
#include "pixelwise/PixelwiseFixture.h"
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

std::string describeComparison(const std::string& name, unsigned long bytes, unsigned long nbThreads)
{
    return name + ": " + bytesToText(bytes) + " read and written, " + describe(findDataPlace(bytes, nbThreads));
}

void addComparison(Suite& suite, const PixelwiseCase& work, const PixelwiseSize& size, unsigned long nbThreads)
{
    const auto fixture = std::make_shared<PixelwiseFixture>(work, size.sizeX, size.sizeY, nbThreads);
    const unsigned long bytes = size.sizeX * size.sizeY * (work.getBytesRead() + work.getBytesWritten());
    const std::string name = namePixelwise(work, size, nbThreads);
    Comparison comparison(describeComparison(name, bytes, nbThreads),
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
    addFlowLimits(
        comparison, [fixture]() -> const FlowWork& { return fixture->getWork(); }, work.getBytesRead(),
        work.getBytesWritten());
    suite.add(name, std::move(comparison));
}

void fillSuite(Suite& suite)
{
    benchmark::AddCustomContext("peer", describeOpenCv());
    const unsigned long nbThreads = core::getNbUsableThreads();
    std::vector<std::string> names;
    for (const PixelwiseSize& size : g_pixelwiseSizes) {
        for (const PixelwiseCase& work : makePixelwiseCases()) {
            addComparison(suite, work, size, size.bAllThreads ? nbThreads : 1);
            names.push_back(namePixelwise(work, size, size.bAllThreads ? nbThreads : 1));
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
