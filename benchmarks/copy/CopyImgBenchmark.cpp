// copyImg into a given image and into a new one, beside bare copy loops and memcpy on the same bytes.
#include "copy/CopyFixture.h"
#include "copy/CopyGoals.h"
#include "copy/SmallCall.h"
#include "support/DataPlace.h"
#include "support/FlowLimits.h"
#include "support/ForcedSet.h"
#include "support/Suite.h"
#include "support/Table.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace orlix::bench {

namespace {

using FixturePtr = std::shared_ptr<CopyFixture>;

constexpr unsigned long g_pooledBytes = 1UL
                                        << 20; ///< from here on, memory of a new image comes from the library's pool

void copyByLibrary(const std::byte* source, std::byte* destination, unsigned long, unsigned long bytesWritten)
{
    std::memcpy(destination, source, bytesWritten);
}

void addOperator(Comparison& comparison, const FixturePtr& fixture, const eInstructionSet& set)
{
    const char* const name = core::getInstructionSetName(set);
    const auto prepare = [set] { forceSet(set); };
    comparison.add({nameGiven(name), eRole::eOperator,
                    [fixture] { imaproc::util::copyImg(fixture->getInput(), fixture->getOutput()); }, prepare});
    comparison.add(
        {nameNew(name), eRole::eOperator, [fixture] { imaproc::util::copyImg(fixture->getInput()); }, prepare});
}

/// A new output while the pool is empty: what the first call pays.
void addFirstCall(Comparison& comparison, const FixturePtr& fixture, const eInstructionSet& set)
{
    const auto prepare = [set] {
        forceSet(set);
        image::releasePooledMemory();
    };
    comparison.add(
        {"new/first-call", eRole::eOther, [fixture] { imaproc::util::copyImg(fixture->getInput()); }, prepare, true});
}

void addLimits(Comparison& comparison, const FixturePtr& fixture)
{
    addFlowLimits(
        comparison, [fixture]() -> const FlowWork& { return fixture->getWork(); }, 1, 1);
    comparison.add({"memcpy", eRole::ePeer, [fixture] { fixture->getWork().forEachStretch(copyByLibrary); }});
    const auto copyToFresh = [fixture] {
        const std::unique_ptr<void, void (*)(void*)> block(std::malloc(fixture->getWork().getBytesWritten()),
                                                           std::free);
        fixture->getWork().forEachStretchInto(static_cast<std::byte*>(block.get()), copyByLibrary);
        benchmark::DoNotOptimize(block.get());
    };
    comparison.add({"malloc-and-memcpy", eRole::eOther, copyToFresh});
}

std::string describeComparison(const CopyCase& copyCase, unsigned long nbThreads)
{
    const unsigned long bytes = getCopyBytes(copyCase);
    return std::string("copyImg ") + copyCase.size + ' ' + image::getBufferTypeName(copyCase.type) + ": " +
           bytesToText(bytes) + " read and written, " + describe(findDataPlace(bytes, nbThreads)) + ", " +
           (nbThreads == 1 ? "1 thread, processor time" : std::to_string(nbThreads) + " threads");
}

void addComparison(Suite& suite, const CopyCase& copyCase, unsigned long nbThreads)
{
    const auto fixture = std::make_shared<CopyFixture>(copyCase, nbThreads);
    Comparison comparison(describeComparison(copyCase, nbThreads), nbThreads == 1 ? eClock::eThreadTime : eClock::eWall,
                          getCopyBytes(copyCase));
    comparison.setFixture([fixture] { fixture->setUp(); },
                          [fixture] {
                              fixture->tearDown();
                              unforceSet();
                          });
    const std::vector<eInstructionSet> sets = suite.getOptions().selectInstructionSets();
    for (const eInstructionSet& set : sets) {
        addOperator(comparison, fixture, set);
    }
    if (getCopyBytes(copyCase) / 2 >= g_pooledBytes) {
        addFirstCall(comparison, fixture, sets.back());
    }
    addLimits(comparison, fixture);
    suite.add(nameComparison(copyCase, nbThreads), std::move(comparison));
}

void fillSuite(Suite& suite)
{
    const unsigned long nbThreads = core::getNbUsableThreads();
    for (const CopyCase& copyCase : g_copyCases) {
        addComparison(suite, copyCase, 1);
        if (nbThreads > 1) {
            addComparison(suite, copyCase, nbThreads);
        }
    }
    addSmallCall(suite);
    suite.addEnd(printCopyGoals);
}

} // namespace

} // namespace orlix::bench

int main(int argc, char** argv)
{
    return orlix::bench::runSuite(argc, argv, orlix::bench::fillSuite);
}
