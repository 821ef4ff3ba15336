#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <boost/make_shared.hpp>

#include <tbb/global_control.h>
#include <tbb/info.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <optional>

namespace orlix::core {

namespace {

/// One thread moves so many bytes between its second-level cache and itself in about 8 microseconds; less work than
/// that is done before a second thread has joined.
constexpr unsigned long g_parallelBytes = 640UL << 10;

unsigned long getNbProcessors()
{
    return static_cast<unsigned long>(std::max(1, tbb::info::default_concurrency()));
}

/// oneTBB has so many workers and no more.
unsigned long getMostThreads()
{
    return std::max(256UL, getNbProcessors());
}

/// Left to itself, oneTBB makes as many threads as there are processors, and writes to stderr where more are asked for.
void allowThreads(unsigned long nbThreads)
{
    static std::mutex g_mutex;
    static unsigned long g_nbAllowed = getNbProcessors();
    static std::optional<tbb::global_control> g_control;
    const std::lock_guard<std::mutex> lock(g_mutex);
    if (nbThreads > g_nbAllowed) {
        g_control.emplace(tbb::global_control::max_allowed_parallelism, nbThreads);
        g_nbAllowed = nbThreads;
    }
}

class TbbExecutor final : public BaseExecutor
{
public:
    explicit TbbExecutor(unsigned long nbThreads) : m_nbThreads(std::min(nbThreads, getMostThreads()))
    {
        if (m_nbThreads > 1) {
            allowThreads(m_nbThreads);
            m_arena = boost::make_shared<tbb::task_arena>(static_cast<int>(m_nbThreads));
        }
    }

    unsigned long getNbThreads() const override
    {
        if (m_nbThreads != 0) {
            return m_nbThreads;
        }
        const auto arenaSize = static_cast<unsigned long>(std::max(1, tbb::this_task_arena::max_concurrency()));
        return std::min(arenaSize, getNbUsableThreads());
    }

    void forEach(unsigned long nbElements, unsigned long cost, const ElementBody& body) override
    {
        const unsigned long nbThreads = std::min(nbElements, cost <= g_parallelBytes ? 1 : getNbThreads());
        if (nbThreads <= 1) {
            for (unsigned long element = 0; element < nbElements; ++element) {
                body(element);
            }
        } else if (m_arena) {
            m_arena->execute([&] { share(nbThreads, nbElements, body); });
        } else {
            share(nbThreads, nbElements, body);
        }
    }

    void post(boost::function<void()> task) override
    {
        if (m_arena) {
            m_arena->enqueue(std::move(task));
        } else {
            tbb::task_arena(tbb::task_arena::attach()).enqueue(std::move(task));
        }
    }

private:
    /// Elements are handed out in rising order, so that all below a failing one have been started before it.
    static void share(unsigned long nbThreads, unsigned long nbElements, const ElementBody& body)
    {
        std::atomic<unsigned long> next{0};
        tbb::parallel_for(
            tbb::blocked_range<unsigned long>(0, nbThreads, 1),
            [&](const tbb::blocked_range<unsigned long>&) {
                for (unsigned long element = next++; element < nbElements; element = next++) {
                    body(element);
                }
            },
            tbb::simple_partitioner());
    }

    unsigned long m_nbThreads;
    boost::shared_ptr<tbb::task_arena> m_arena;
};

} // namespace

boost::shared_ptr<BaseExecutor> makeTbbExecutor(unsigned long nbThreads)
{
    return boost::make_shared<TbbExecutor>(nbThreads);
}

} // namespace orlix::core
