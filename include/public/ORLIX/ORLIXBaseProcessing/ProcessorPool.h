// Idle processors of one class, kept for the next element or call of the same thread.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"

#include <boost/make_shared.hpp>

#include <cstddef>
#include <utility>

namespace orlix::processor {

/// Making a processor costs a dozen allocations, which dwarf the work on a small image; so a processor that nobody else
/// holds goes back, cleared, to the thread that used it. A processor out of the pool behaves as a new one on which
/// `init` has been called. No lock: each thread has idle processors of its own, a bounded number of each class.
template <class TProcessor>
class ProcessorPool
{
public:
    static boost::shared_ptr<TProcessor> take()
    {
        Idle& idle = accessIdle();
        return idle.count == 0 ? boost::shared_ptr<TProcessor>() : std::move(idle.processors[--idle.count]);
    }

    /// Keeps `processor` where the caller alone holds it and clearing it succeeds; lets it go otherwise.
    static void giveBack(boost::shared_ptr<TProcessor> processor) noexcept
    {
        Idle& idle = accessIdle();
        if (processor.use_count() != 1 || idle.count == g_maxIdle) {
            return;
        }
        try {
            processor->clearForReuse();
            idle.processors[idle.count++] = std::move(processor);
        } catch (...) {
            // The next call makes a new one.
        }
    }

private:
    static constexpr std::size_t g_maxIdle = 4;

    struct Idle
    {
        boost::shared_ptr<TProcessor> processors[g_maxIdle];
        std::size_t count = 0;
    };

    static Idle& accessIdle()
    {
        static thread_local Idle t_idle;
        return t_idle;
    }
};

/// A processor for one synchronous call, initialised, and given back at the end of the scope.
template <class TProcessor>
class CallProcessor
{
public:
    CallProcessor() : m_processor(ProcessorPool<TProcessor>::take())
    {
        if (!m_processor) {
            m_processor = boost::make_shared<TProcessor>();
            // A class whose init fails says so again, as a text, when it is run.
            static_cast<void>(m_processor->init(eProcessorRulePolicy::eRulePolicyCheck));
        }
    }
    ~CallProcessor() { ProcessorPool<TProcessor>::giveBack(std::move(m_processor)); }
    CallProcessor(const CallProcessor&) = delete;
    CallProcessor& operator=(const CallProcessor&) = delete;

    TProcessor* operator->() const { return m_processor.get(); }
    void run() const { executeSyncRun(m_processor); }

private:
    boost::shared_ptr<TProcessor> m_processor;
};

} // namespace orlix::processor
