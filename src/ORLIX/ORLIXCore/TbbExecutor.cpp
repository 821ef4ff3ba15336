#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include "ORLIX/ORLIXCore/ForkCount.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXCore/SharedElements.h"
#include "ORLIX/ORLIXCore/ThreadAllowance.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <boost/make_shared.hpp>

#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <thread>

namespace orlix::core {

namespace {

/// One thread moves so many bytes between its second-level cache and itself in about 8 microseconds; less work than
/// that is done before a second thread has joined.
constexpr unsigned long g_parallelBytes = 640UL << 10;

/// The arena that the calling thread works in, of those that executors made; null for any other.
thread_local const void* t_arena = nullptr;

class InsideArena
{
public:
    explicit InsideArena(const void* arena) : m_former(t_arena) { t_arena = arena; }
    ~InsideArena() { t_arena = m_former; }
    InsideArena(const InsideArena&) = delete;
    InsideArena& operator=(const InsideArena&) = delete;

private:
    const void* m_former;
};

/// Elements are handed out in rising order, so that all below a failing one have been started before it.
void share(unsigned long nbThreads, unsigned long nbElements, const ElementBody& body)
{
    watchThreads();
    std::atomic<unsigned long> next{0};
    const auto work = [&] {
        for (unsigned long element = next++; element < nbElements; element = next++) {
            body(element);
        }
    };
    const void* const arena = t_arena;
    try {
        tbb::parallel_for(
            tbb::blocked_range<unsigned long>(0, nbThreads, 1),
            [&](const tbb::blocked_range<unsigned long>&) {
                const InsideArena inside(arena);
                work();
            },
            tbb::simple_partitioner());
    } catch (const std::exception&) {
        // oneTBB has found no memory or no thread, since elements throw nothing. What it began has ended.
    }
    work();
}

void shareApart(unsigned long nbThreads, unsigned long nbElements, const ElementBody& body)
{
    tbb::this_task_arena::isolate([&] { share(nbThreads, nbElements, body); });
}

void takeInOrder(unsigned long nbElements, const ElementBody& body)
{
    for (unsigned long element = 0; element < nbElements; ++element) {
        body(element);
    }
}

/// An arena with one place that is kept for a thread from outside.
class Arena
{
public:
    explicit Arena(unsigned long nbThreads)
        : m_nbThreads(nbThreads), m_allowance(nbThreads), m_arena(static_cast<int>(nbThreads))
    {}

    /// A second thread from outside might find no place, and nobody who leaves one. It does its elements where it is,
    /// and is helped from inside.
    void shareApart(unsigned long nbThreads, unsigned long nbElements, const ElementBody& body)
    {
        if (m_bPlaceTaken.test_and_set(std::memory_order_acquire)) {
            shareFromOutside(nbThreads, nbElements, body);
            return;
        }
        struct Leave
        {
            std::atomic_flag& bPlaceTaken;
            ~Leave() { bPlaceTaken.clear(std::memory_order_release); }
        } const leave{m_bPlaceTaken};
        bool bDone = false;
        try {
            m_arena.execute([&] {
                const InsideArena inside(this);
                core::shareApart(nbThreads, nbElements, body);
                bDone = true;
            });
        } catch (const std::exception&) {
            // No memory for the arena, or no thread.
        }
        if (!bDone) {
            takeInOrder(nbElements, body);
        }
    }

    template <class TTask>
    void enqueue(TTask task)
    {
        m_arena.enqueue([this, task = std::move(task)] {
            const InsideArena inside(this);
            task();
        });
    }

private:
    void shareFromOutside(unsigned long nbThreads, unsigned long nbElements, const ElementBody& body)
    {
        const auto elements = boost::make_shared<SharedElements>(nbElements, body);
        try {
            for (unsigned long i = 1; i < std::min(nbThreads, m_nbThreads); ++i) {
                enqueue([elements] { tbb::this_task_arena::isolate([&] { elements->help(); }); });
            }
        } catch (const std::exception&) {
            // Fewer help, or none. Those that do must find the elements here until they are done.
        }
        elements->doAll();
    }

    unsigned long m_nbThreads;
    ThreadAllowance m_allowance;
    tbb::task_arena m_arena;
    std::atomic_flag m_bPlaceTaken;
};

/// In a forked child it stays: to end it would be to wait for threads that aren't there.
struct EndArena
{
    unsigned nbForks;

    void operator()(Arena* arena) const noexcept
    {
        if (nbForks == getForkCount()) {
            std::default_delete<Arena>()(arena);
        }
    }
};

class TbbExecutor final : public BaseExecutor
{
public:
    explicit TbbExecutor(unsigned long nbThreads) : m_nbThreads(nbThreads), m_nbForks(getForkCount())
    {
        if (m_nbThreads > 1) {
            m_arena = {std::make_unique<Arena>(m_nbThreads).release(), EndArena{m_nbForks}};
        }
    }

    unsigned long getNbThreads() const override
    {
        if (isCutOff()) {
            return 1;
        }
        if (m_nbThreads != 0) {
            return m_nbThreads;
        }
        const auto arenaSize = static_cast<unsigned long>(std::max(1, tbb::this_task_arena::max_concurrency()));
        return std::min(arenaSize, getNbUsableThreads());
    }

    void forEach(unsigned long nbElements, unsigned long cost, const ElementBody& body) override
    {
        shareBy(&share, nbElements, cost, body);
    }

    void forEachApart(unsigned long nbElements, unsigned long cost, const ElementBody& body) override
    {
        shareBy(&shareApart, nbElements, cost, body);
    }

    void post(boost::function<void()> task) override
    {
        if (isCutOff()) {
            std::thread(std::move(task)).detach();
        } else if (m_arena) {
            m_arena->enqueue(std::move(task));
        } else {
            tbb::task_arena(tbb::task_arena::attach()).enqueue(std::move(task));
        }
    }

private:
    /// Are the threads those of a process that this one was forked from?
    bool isCutOff() const { return m_nbForks != getForkCount(); }

    using Share = void(unsigned long nbThreads, unsigned long nbElements, const ElementBody& body);

    /// By `shareHere` where the calling thread is in the arena already, or where there is none.
    void shareBy(Share* shareHere, unsigned long nbElements, unsigned long cost, const ElementBody& body)
    {
        const unsigned long nbThreads = std::min(nbElements, cost <= g_parallelBytes ? 1 : getNbThreads());
        if (nbThreads <= 1) {
            takeInOrder(nbElements, body);
        } else if (m_arena && t_arena != m_arena.get()) {
            m_arena->shareApart(nbThreads, nbElements, body);
        } else {
            shareHere(nbThreads, nbElements, body);
        }
    }

    unsigned long m_nbThreads;
    unsigned m_nbForks;
    boost::shared_ptr<Arena> m_arena;
};

} // namespace

boost::shared_ptr<BaseExecutor> makeTbbExecutor(unsigned long nbThreads)
{
    if (nbThreads > getMostThreads()) {
        raise<eORLIXCoreMessage>(ORLIX_HERE, eORLIXCoreMessage::eTooManyThreads, nbThreads, getMostThreads(),
                                 getMostThreads());
    }
    if (getForkCount() != 0) {
        return makePlainThreadExecutor(nbThreads);
    }
    return boost::make_shared<TbbExecutor>(nbThreads);
}

} // namespace orlix::core
