#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"

#include "ORLIX/ORLIXMath/Simd/LinearCongruence.h"
#include "ORLIX/ORLIXUtil/RandomStates.h"

#include <atomic>
#include <mutex>

namespace orlix::imaproc::util {

namespace {

/// The seed of the process, and how many runs have drawn a number since.
struct ProcessSeed
{
    std::atomic<bool> bSet = false;
    std::mutex mutex;
    unsigned long seed = 0;
    unsigned long nbRuns = 0;
};

ProcessSeed& accessProcessSeed()
{
    static ProcessSeed g_seed;
    return g_seed;
}

thread_local const RandomRun* t_run = nullptr;

/// A bijection of 64 bits: the last step of the generator "SplitMix64" (G. Steele, D. Lea, C. Flood, 2014).
unsigned long mix(unsigned long number)
{
    number = (number ^ number >> 30) * 0xBF58476D1CE4E5B9UL;
    number = (number ^ number >> 27) * 0x94D049BB133111EBUL;
    return number ^ number >> 31;
}

constexpr unsigned long g_golden = 0x9E3779B97F4A7C15UL;

/// Of numbers in an order; another one in any place gives another key.
template <class... TNumbers>
unsigned long keyOf(TNumbers... numbers)
{
    unsigned long key = 0;
    ((key = mix(key + g_golden + numbers)), ...);
    return key;
}

RandomRun runOfProcess(const unsigned long* number)
{
    ProcessSeed& process = accessProcessSeed();
    RandomRun run;
    if (process.bSet.load(std::memory_order_acquire)) {
        const std::lock_guard<std::mutex> lock(process.mutex);
        run.bSeeded = true;
        run.seed = process.seed;
        run.number = number == nullptr ? process.nbRuns++ : *number;
    }
    return run;
}

} // namespace

void setRandomSeed(unsigned long seed)
{
    ProcessSeed& process = accessProcessSeed();
    const std::lock_guard<std::mutex> lock(process.mutex);
    process.seed = seed;
    process.nbRuns = 0;
    process.bSet.store(true, std::memory_order_release);
}

void clearRandomSeed()
{
    accessProcessSeed().bSet.store(false, std::memory_order_release);
}

RandomRun RandomRun::atPlan(unsigned long z, unsigned long c, unsigned long t) const
{
    RandomRun run = *this;
    run.firstPlan = PlanIndex(firstPlan.z + z, firstPlan.c + c, firstPlan.t + t);
    return run;
}

RandomRunScope::RandomRunScope(unsigned long number) : RandomRunScope(runOfProcess(&number)) {}

RandomRunScope::RandomRunScope(unsigned long seed, unsigned long number) : m_outer(t_run)
{
    m_run.bSeeded = true;
    m_run.seed = seed;
    m_run.number = number;
    t_run = &m_run;
}

RandomRunScope::RandomRunScope(const RandomRun& run) : m_run(run), m_outer(t_run)
{
    t_run = &m_run;
}

RandomRunScope::~RandomRunScope()
{
    t_run = m_outer;
}

RandomRun startRandomRun()
{
    return t_run != nullptr ? *t_run : runOfProcess(nullptr);
}

unsigned long fillRandomStates(const RandomRun& run, unsigned long firstElement, unsigned long nbElements,
                               unsigned long nbDraws, unsigned long nbLanes, unsigned int* states)
{
    if (!run.bSeeded) {
        drawRandomStates(states, nbLanes);
        return 0;
    }
    constexpr unsigned long nbSteps = 8; // lanes from there on repeat those before
    simd::CongruentialStep ahead[nbSteps];
    for (unsigned long lane = 0; lane < nbLanes && lane < nbSteps; ++lane) {
        ahead[lane] = simd::repeated(simd::stepOfLane(lane), firstElement / nbElements * nbDraws);
    }
    const unsigned long plan = keyOf(run.seed, run.number, run.firstPlan.t, run.firstPlan.c, run.firstPlan.z);
    for (unsigned long lane = 0; lane < nbLanes; ++lane) {
        states[lane] = ahead[lane % nbSteps](static_cast<unsigned int>(keyOf(plan, lane) >> 32));
    }
    return firstElement % nbElements;
}

} // namespace orlix::imaproc::util
