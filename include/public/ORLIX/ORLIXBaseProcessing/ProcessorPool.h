// Idle processors of one class, kept for the next element or call of the same thread.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/IdleProcessors.h"

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
        IdleProcessors& idle = accessIdle();
        if (idle.empty()) {
            return {};
        }
        auto processor = boost::static_pointer_cast<TProcessor>(std::move(idle.back()));
        idle.pop_back();
        return processor;
    }

    /// Keeps `processor` where the caller alone holds it and clearing it succeeds; lets it go otherwise.
    static void giveBack(boost::shared_ptr<TProcessor> processor) noexcept
    {
        try {
            if (processor.use_count() == 1) {
                processor->clearForReuse();
                keep(std::move(processor));
            }
        } catch (...) {
            // The next call makes a new one.
        }
    }
    /// Keeps a processor that is as it was when it was taken, and that nobody else holds.
    static void keep(boost::shared_ptr<TProcessor> processor) noexcept
    {
        try {
            IdleProcessors& idle = accessIdle();
            if (idle.size() < g_maxIdle) {
                idle.push_back(std::move(processor));
            }
        } catch (...) {
            // As above.
        }
    }

private:
    static constexpr std::size_t g_maxIdle = 4;

    static IdleProcessors& accessIdle()
    {
        static thread_local IdleProcessors* t_idle = nullptr;
        if (t_idle == nullptr) {
            t_idle = &accessIdleProcessors(typeid(TProcessor));
        }
        return *t_idle;
    }
};

/// A processor out of the pool, or a new one; on both `init` has been called.
template <class TProcessor>
boost::shared_ptr<TProcessor> takeOrMake()
{
    boost::shared_ptr<TProcessor> processor = ProcessorPool<TProcessor>::take();
    if (!processor) {
        processor = boost::make_shared<TProcessor>();
        // A class whose init fails says so again, as a text, when it is run.
        static_cast<void>(processor->init(eProcessorRulePolicy::eRulePolicyCheck));
    }
    return processor;
}

/// A processor for one synchronous call, given back at the end of the scope.
template <class TProcessor>
class CallProcessor
{
public:
    CallProcessor() : m_processor(takeOrMake<TProcessor>()) {}
    ~CallProcessor() { ProcessorPool<TProcessor>::giveBack(std::move(m_processor)); }
    CallProcessor(const CallProcessor&) = delete;
    CallProcessor& operator=(const CallProcessor&) = delete;

    TProcessor* operator->() const { return m_processor.get(); }
    void run() const { executeSyncRun(m_processor); }

private:
    boost::shared_ptr<TProcessor> m_processor;
};

} // namespace orlix::processor
