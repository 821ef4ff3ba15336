// Values at a million points by both methods, beside bare loops, the way of array libraries, and OpenCV's remap.
#include "points/PointsFixture.h"
#include "support/DataPlace.h"
#include "support/Suite.h"
#include "support/Table.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <ostream>

namespace orlix::bench {

namespace {

using imaproc::attr::createDefaultImageValueExtractionMethod;
using imaproc::attr::createImageValueExtractionMethod;
using imaproc::attr::ImageValueExtractionMethod;

void addComparison(Suite& suite, const PointsCase& work)
{
    const auto fixture = std::make_shared<PointsFixture>(work);
    const unsigned long bytes = PointsFixture::s_nbPoints * (work.nbAxes + 1) * sizeof(double);
    Comparison comparison(work.getName() + ": " + bytesToText(bytes) + " of points and values, an image of " +
                              bytesToText(work.getNbPixels() * sizeof(float)),
                          work.nbThreads == 1 ? eClock::eThreadTime : eClock::eWall, bytes);
    comparison.setFixture([fixture] { fixture->setUp(); }, [fixture] { fixture->tearDown(); });
    const auto addMethod = [&](const char* name, const auto& method) {
        comparison.add({name, eRole::eOperator, [fixture, method] { fixture->runOperator(method); }});
    };
    addMethod("default", createDefaultImageValueExtractionMethod());
    addMethod("tiled", createImageValueExtractionMethod(ImageValueExtractionMethod::s_tiledAlways));
    addMethod("striped", createImageValueExtractionMethod(ImageValueExtractionMethod::s_tiledNever));
    if (fixture->hasPeer()) {
        comparison.add({"OpenCV", eRole::ePeer, [fixture] { fixture->runPeer(); }});
    }
    comparison.add({"array library's way", eRole::eOther, [fixture] { fixture->runAnyAxes(); }});
    comparison.add({"loop", eRole::eOrdinaryLoop, [fixture] { fixture->runLoop(); }});
    suite.add(work.getName(), std::move(comparison));
}

void fillSuite(Suite& suite)
{
    benchmark::AddCustomContext("peer", describeOpenCv());
    const unsigned long nbThreads = core::getNbUsableThreads();
    constexpr struct
    {
        unsigned long nbAxes;
        unsigned long size;
    } sizes[] = {{2, 256}, {2, 1024}, {2, 4096}, {3, 64}, {3, 256}};
    for (const auto& size : sizes) {
        for (const ePointOrder order : {ePointOrder::random, ePointOrder::sorted, ePointOrder::dense}) {
            for (const unsigned policy : {0U, 1U, 2U}) {
                addComparison(suite, {size.nbAxes, size.size, order, policy, 1});
                if (nbThreads > 1) {
                    addComparison(suite, {size.nbAxes, size.size, order, policy, nbThreads});
                }
            }
        }
    }
}

} // namespace

} // namespace orlix::bench

int main(int argc, char** argv)
{
    return orlix::bench::runSuite(argc, argv, orlix::bench::fillSuite);
}
