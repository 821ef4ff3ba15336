#include "copy/SmallCall.h"

#include "support/AllocationCounter.h"
#include "support/Suite.h"
#include "support/Table.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <cstring>
#include <memory>
#include <ostream>

namespace orlix::bench {

namespace {

using image::eImageBufferType;
using imaproc::util::copyImg;

constexpr unsigned long g_side = 64;
constexpr unsigned long g_pixels = g_side * g_side;

/// An input and an output of one geometry.
struct Pair
{
    ImagePtr pixels; ///< the input, writable
    ImageConstPtr input;
    ImagePtr output;

    void make(const image::BaseImageGeometry& geometry)
    {
        pixels = image::createImage(geometry);
        input = pixels;
        output = image::createImage(geometry);
    }
};

struct Images
{
    Pair whole;    ///< 64x64, which goes straight to level 3
    Pair pixel;    ///< 1x1
    Pair twoPlans; ///< 64x32x2, which goes through all levels

    void setUp()
    {
        core::setNbThreads(1);
        whole.make(*image::geometry2d(eImageBufferType::UInt8, g_side, g_side));
        pixel.make(*image::geometry2d(eImageBufferType::UInt8, 1, 1));
        twoPlans.make(*image::geometry3d(eImageBufferType::UInt8, g_side, g_side / 2, 2));
        std::memset(whole.pixels->accessRow(0, 0, 0, 0), 1, g_pixels);
    }
    void tearDown()
    {
        *this = {};
        core::setNbThreads(0);
    }
};

using ImagesPtr = std::shared_ptr<Images>;

/// Names of what is measured; the table below tells what each stands for.
const std::string g_given = "given";
const std::string g_new = "new";
const std::string g_pixel = "1x1";
const std::string g_twoPlans = "64x32x2";
const std::string g_memcpy = "memcpy";
const std::string g_image = "new-image";
const std::string g_processor = "new-processor";

Comparison makeComparison(const ImagesPtr& images)
{
    Comparison comparison("copyImg 64x64 UInt8, parts of a call, 1 thread, processor time", eClock::eThreadTime,
                          2 * g_pixels);
    comparison.setFixture([images] { images->setUp(); }, [images] { images->tearDown(); });
    const auto addCopy = [&](const std::string& name, Pair Images::*pair) {
        comparison.add(
            {name, eRole::eOperator, [images, pair] { copyImg(((*images).*pair).input, ((*images).*pair).output); }});
    };
    addCopy(g_given, &Images::whole);
    comparison.add({g_new, eRole::eOperator, [images] { copyImg(images->whole.input); }});
    addCopy(g_pixel, &Images::pixel);
    addCopy(g_twoPlans, &Images::twoPlans);
    comparison.add({g_memcpy, eRole::ePeer, [images] {
                        std::memcpy(images->whole.output->accessRow(0, 0, 0, 0),
                                    images->whole.input->accessRow(0, 0, 0, 0), g_pixels);
                    }});
    comparison.add({g_image, eRole::eOther, [images] { image::createImage(images->whole.input->getGeometry()); }});
    comparison.add({g_processor, eRole::eOther, [] {
                        static_cast<void>(imaproc::util::CopyImgLvl1::createProcessor()->init(
                            processor::eProcessorRulePolicy::eRulePolicyCheck));
                    }});
    return comparison;
}

/// Allocations of one pass of each candidate, once nothing is made for the first time any more.
std::vector<Allocations> countAllocations(const std::vector<Candidate>& candidates)
{
    constexpr unsigned long nbPasses = 100;
    std::vector<Allocations> counts;
    for (const Candidate& candidate : candidates) {
        candidate.pass();
        const Allocations before = getAllocations();
        for (unsigned long pass = 0; pass < nbPasses; ++pass) {
            candidate.pass();
        }
        const Allocations after = getAllocations();
        counts.push_back({(after.count - before.count) / nbPasses, (after.bytes - before.bytes) / nbPasses});
    }
    return counts;
}

class Breakdown
{
public:
    Breakdown(const ComparisonResult& result, std::vector<Allocations> allocations)
        : m_result(result), m_allocations(std::move(allocations))
    {}

    /// What `whole` costs beyond `part`; all of it where `part` is empty.
    void add(const std::string& text, const std::string& whole, const std::string& part = {})
    {
        const Cost cost = find(whole);
        const Cost less = part.empty() ? Cost() : find(part);
        m_table.addRow({text, toText((cost.seconds - less.seconds) * 1e9, 0), toText(cost.count - less.count, 0),
                        toText(cost.bytes - less.bytes, 0)});
    }
    void print(std::ostream& stream) const { m_table.print(stream); }

private:
    struct Cost
    {
        double seconds = 0;
        double count = 0;
        double bytes = 0;
    };
    Cost find(const std::string& name) const
    {
        const Series* series = m_result.find(name);
        const auto index = static_cast<std::size_t>(series - m_result.getSeries().data());
        return {m_result.getSeconds(*series), static_cast<double>(m_allocations[index].count),
                static_cast<double>(m_allocations[index].bytes)};
    }

    const ComparisonResult& m_result;
    std::vector<Allocations> m_allocations;
    Table m_table{{"", "ns", "allocations", "bytes"}};
};

void printBreakdown(std::ostream& stream, const ComparisonResult& result, const std::vector<Candidate>& candidates,
                    const ImagesPtr& images)
{
    images->setUp();
    Breakdown breakdown(result, countAllocations(candidates));
    images->tearDown();
    breakdown.add("whole call, given output", g_given);
    breakdown.add("  on one pixel", g_pixel);
    breakdown.add("  the pixels", g_given, g_pixel);
    breakdown.add("the same pixels in two plans", g_twoPlans);
    breakdown.add("whole call, new output", g_new);
    breakdown.add("  beyond the call with a given one", g_new, g_given);
    breakdown.add("for comparison: memcpy of the pixels", g_memcpy);
    breakdown.add("for comparison: an image made and dropped", g_image);
    breakdown.add("for comparison: a level-1 processor made and initialised", g_processor);
    breakdown.print(stream);
}

} // namespace

void addSmallCall(Suite& suite)
{
    const auto images = std::make_shared<Images>();
    Comparison comparison = makeComparison(images);
    const std::vector<Candidate> candidates = comparison.getCandidates();
    suite.add("copyImg/parts/64x64/UInt8/threads:1", std::move(comparison),
              [images, candidates](std::ostream& stream, const ComparisonResult& result) {
                  printBreakdown(stream, result, candidates, images);
              });
}

} // namespace orlix::bench
