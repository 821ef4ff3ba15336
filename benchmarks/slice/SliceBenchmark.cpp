// getSlice3dImg and putSlice3dImg along every axis, beside a bare loop over the same lines and NumPy's way.
#include "slice/SliceFixture.h"
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

void addSlices(Suite& suite, const SliceCase& work, unsigned long nbThreads)
{
    const auto fixture = std::make_shared<SliceFixture>(work, nbThreads);
    const SliceVolume& sizes = work.volume;
    const unsigned long volumeBytes = sizes.sizeX * sizes.sizeY * sizes.sizeZ * image::elementSize(work.type);
    const std::string name = work.getName(nbThreads);
    Comparison comparison(name + ": " + bytesToText(work.countBytes()) + " moved, a volume " +
                              describe(findDataPlace(volumeBytes, 1)),
                          nbThreads == 1 ? eClock::eThreadTime : eClock::eWall, work.countBytes());
    comparison.setFixture([fixture] { fixture->setUp(); },
                          [fixture] {
                              fixture->tearDown();
                              unforceSet();
                          });
    for (const eInstructionSet& set : suite.getOptions().selectInstructionSets()) {
        comparison.add({core::getInstructionSetName(set), eRole::eOperator, [fixture] { fixture->runOperator(); },
                        [set] { forceSet(set); }});
    }
    comparison.add({"loop", eRole::eOrdinaryLoop, [fixture] { fixture->runLoop(); }});
    comparison.add({"strided copy", eRole::eOther, [fixture] { fixture->runStrided(); }});
    suite.add(name, std::move(comparison));
}

void fillSuite(Suite& suite)
{
    const unsigned long nbThreads = core::getNbUsableThreads();
    std::vector<std::string> names;
    for (const SliceCase& work : makeSliceCases()) {
        const unsigned long nbUsed = work.volume.bAllThreads ? nbThreads : 1;
        addSlices(suite, work, nbUsed);
        names.push_back(work.getName(nbUsed));
    }
    suite.addEnd([names](std::ostream& stream, const Suite& all) { printSetTable(stream, all, names); });
}

} // namespace

} // namespace orlix::bench

int main(int argc, char** argv)
{
    return orlix::bench::runSuite(argc, argv, orlix::bench::fillSuite);
}
