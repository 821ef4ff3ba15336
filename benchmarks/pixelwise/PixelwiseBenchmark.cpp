// Erase, threshold, type conversion and random values into given images, beside bare loops over the same bytes and
// beside OpenCV.
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

#include <algorithm>
#include <cstring>
#include <memory>

namespace orlix::bench {

namespace {

std::string describeComparison(const std::string& name, unsigned long bytes, unsigned long nbThreads)
{
    return name + ": " + bytesToText(bytes) + " read and written, " + describe(findDataPlace(bytes, nbThreads));
}

/// Random bits as the simplest generator that needs no state has them, the number of each word through a mix: what the
/// values of any kind could cost at best.
void fillByCounter(const std::byte*, std::byte* destination, unsigned long, unsigned long bytesWritten)
{
    const unsigned long first = reinterpret_cast<unsigned long>(destination) / 8;
    for (unsigned long i = 0; 8 * i + 8 <= bytesWritten; ++i) {
        unsigned long word = (first + i) * 0x9E3779B97F4A7C15UL;
        word = (word ^ word >> 30) * 0xBF58476D1CE4E5B9UL;
        word = (word ^ word >> 27) * 0x94D049BB133111EBUL;
        word ^= word >> 31;
        std::memcpy(destination + 8 * i, &word, 8);
    }
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
    if (work.bRandom) {
        comparison.add(
            {"counter-based", eRole::eOther, [fixture] { fixture->getWork().forEachStretch(fillByCounter); }});
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
    const auto add = [&](const PixelwiseCase& work, const PixelwiseSize& size) {
        const unsigned long nbOfSize = size.bAllThreads ? nbThreads : 1;
        const std::string name = namePixelwise(work, size, nbOfSize);
        if (std::find(names.begin(), names.end(), name) == names.end()) { // all threads may be one
            addComparison(suite, work, size, nbOfSize);
            names.push_back(name);
        }
    };
    const std::vector<PixelwiseCase> cases = makePixelwiseCases();
    for (const PixelwiseSize& size : g_pixelwiseSizes) {
        std::for_each(cases.begin(), cases.end(), [&](const PixelwiseCase& work) { add(work, size); });
    }
    for (const PixelwiseSize& size : g_randomSizes) {
        for (const PixelwiseCase& work : cases) {
            if (work.bRandom) {
                add(work, size);
            }
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
