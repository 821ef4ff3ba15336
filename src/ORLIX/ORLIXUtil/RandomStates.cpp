#include "ORLIX/ORLIXUtil/RandomStates.h"

#include <atomic>
#include <chrono>

#include <sys/random.h>

namespace orlix {

namespace {

/// Every step can be undone, so different numbers stay different. Multipliers: C. Wellons, "Prospecting for hash
/// functions", 2018.
unsigned int mix(unsigned int number)
{
    number ^= number >> 16;
    number *= 0x7FEB352DU;
    number ^= number >> 15;
    number *= 0x846CA68BU;
    return number ^ number >> 16;
}

unsigned int startOfProcess() noexcept
{
    unsigned int start = 0;
    if (getrandom(&start, sizeof(start), GRND_NONBLOCK) != static_cast<ssize_t>(sizeof(start))) {
        start = static_cast<unsigned int>(std::chrono::steady_clock::now().time_since_epoch().count());
    }
    return start;
}

} // namespace

void drawRandomStates(unsigned int* states, unsigned long nbStates) noexcept
{
    static std::atomic<unsigned int> g_counter(startOfProcess());
    const unsigned int first = g_counter.fetch_add(static_cast<unsigned int>(nbStates), std::memory_order_relaxed);
    for (unsigned long i = 0; i < nbStates; ++i) {
        states[i] = mix(first + static_cast<unsigned int>(i));
    }
}

} // namespace orlix
