#include "support/Comparison.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <numeric>
#include <random>

#include <sys/resource.h>

namespace orlix::bench {

namespace {

constexpr double g_sampleSeconds = 0.25e-3; ///< far above the clocks' steps, far below a time slice
constexpr double g_shortSeconds = 10e-3;    ///< longer passes leave nothing of the caches as they were
constexpr std::size_t g_mostRounds = 1000;

double readClock(eClock clock)
{
    timespec time{};
    clock_gettime(clock == eClock::eThreadTime ? CLOCK_THREAD_CPUTIME_ID : CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

unsigned long countPreemptions()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<unsigned long>(usage.ru_nivcsw);
}

} // namespace

double Comparison::sampleUndisturbed(const Candidate& candidate, unsigned long nbPasses, bool bShort) const
{
    const int mostTries = m_clock == eClock::eWall && bShort ? 5 : 1;
    double shortest = 0;
    for (int tried = 0; tried < mostTries; ++tried) {
        const unsigned long before = countPreemptions();
        if (candidate.prepare) {
            candidate.prepare();
        }
        if (bShort && !candidate.bSinglePass) {
            candidate.pass();
        }
        const double seconds = sample(candidate, nbPasses);
        shortest = tried == 0 ? seconds : std::min(shortest, seconds);
        if (countPreemptions() == before) {
            break;
        }
    }
    return shortest;
}

double Comparison::sample(const Candidate& candidate, unsigned long nbPasses) const
{
    const double start = readClock(m_clock);
    for (unsigned long pass = 0; pass < nbPasses; ++pass) {
        candidate.pass();
        benchmark::ClobberMemory();
    }
    return (readClock(m_clock) - start) / static_cast<double>(nbPasses);
}

unsigned long Comparison::findPasses(const Candidate& candidate) const
{
    if (candidate.prepare) {
        candidate.prepare();
    }
    if (candidate.bSinglePass) {
        return 1;
    }
    if (sample(candidate, 1) > 4 * g_sampleSeconds) { // the first pass may be slow, but not by so much
        return 1;
    }
    unsigned long nbPasses = 1;
    for (;;) {
        const double one = std::max(1e-9, sample(candidate, nbPasses));
        const double wanted = std::ceil(g_sampleSeconds / one);
        if (wanted <= 1.5 * static_cast<double>(nbPasses)) {
            return nbPasses;
        }
        nbPasses = static_cast<unsigned long>(std::min(wanted, 8.0 * static_cast<double>(nbPasses)));
    }
}

ComparisonResult Comparison::run(double seconds) const
{
    struct Fixture
    {
        explicit Fixture(const Comparison& comparison) : tearDown(comparison.m_tearDown) { comparison.m_setUp(); }
        ~Fixture() { tearDown(); }
        const std::function<void()>& tearDown;
    };
    const Fixture fixture(*this);
    const unsigned long before = countPreemptions();
    std::vector<Series> series = measure(seconds);
    return ComparisonResult(m_title, m_bytes, std::move(series), countPreemptions() - before);
}

std::vector<Series> Comparison::measure(double seconds) const
{
    std::vector<Series> series;
    std::vector<unsigned long> passes;
    for (const Candidate& candidate : m_candidates) {
        series.push_back({candidate.name, candidate.role, {}});
        passes.push_back(findPasses(candidate));
    }
    std::vector<std::size_t> order(m_candidates.size());
    std::iota(order.begin(), order.end(), 0);
    std::minstd_rand random;
    const std::size_t fewestRounds = seconds > 0 ? 5 : 1;
    const double end = readClock(eClock::eWall) + seconds;
    for (std::size_t round = 0; round < fewestRounds || (round < g_mostRounds && readClock(eClock::eWall) < end);
         ++round) {
        std::shuffle(order.begin(), order.end(), random);
        for (const std::size_t i : order) {
            std::vector<double>& samples = series[i].seconds;
            const bool bShort = samples.empty() || samples.back() < g_shortSeconds;
            samples.push_back(sampleUndisturbed(m_candidates[i], passes[i], bShort));
        }
    }
    return series;
}

} // namespace orlix::bench
