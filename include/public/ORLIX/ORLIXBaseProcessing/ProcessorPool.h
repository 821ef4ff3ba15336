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
            IdleProcessors& idle = accessIdle();
            if (processor.use_count() == 1 && idle.size() < g_maxIdle) {
                processor->clearForReuse();
                idle.push_back(std::move(processor));
            }
        } catch (...) {
            // The next call makes a new one.
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
