// Runs of processors for Python: without the interpreter's lock, heeding Ctrl-C, telling progress.
#pragma once

#include "Numpy.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <chrono>
#include <functional>
#include <optional>
#include <thread>

namespace orlix::python {

/// Lets other threads of Python run while it lives, unless the work is so short that taking the lock again could cost
/// more than the work.
class LongWork
{
public:
    explicit LongWork(unsigned long bytes)
    {
        if (bytes >= 32768) {
            m_release.emplace();
        }
    }

private:
    std::optional<nb::gil_scoped_release> m_release;
};

/// Bytes of the pixels.
unsigned long bytesOf(const image::BaseImage& image);

/// Looks every 20 ms of a run, on the thread that called it, for Ctrl-C, and tells the progress. What either raises
/// ends the run and is raised by `rethrow`.
class Watch
{
public:
    /// `progress` is called with elements done and known so far. True stands for a bar, None and False for nothing.
    Watch(nb::handle progress, unsigned long bytes) : m_bytes(bytes)
    {
        if (!progress.is_none()) {
            m_progress = observerOf(progress);
        }
        m_bWatched = m_progress.is_valid() || bytes >= 4194304;
        if (m_bWatched) { // small calls would notice the time that it takes to ask for the time
            m_thread = std::this_thread::get_id();
            m_last = std::chrono::steady_clock::now();
        }
    }

    bool isWatched() const { return m_bWatched; }
    unsigned long getBytes() const { return m_bytes; }
    /// Does `work`, the runs of which it watches, without the lock.
    void run(const std::function<void()>& work);
    /// Between parts of a run that has no processor of its own: looks where it is time, or all is done, and raises.
    void lookBetween(unsigned long done, unsigned long known);
    /// Looks at once. False: something was raised.
    bool look(unsigned long done, unsigned long known);
    void rethrow();

private:
    static nb::object observerOf(nb::handle progress);

    bool isDue() const { return std::chrono::steady_clock::now() - m_last >= std::chrono::milliseconds(20); }

    nb::object m_progress; ///< invalid where nobody is to be told
    unsigned long m_bytes;
    bool m_bWatched = false;
    std::thread::id m_thread;
    std::chrono::steady_clock::time_point m_last;
    std::optional<nb::python_error> m_error;
};

/// Runs the level-1 processor of an operator with the given attributes.
template <class TProcessor, class... TValues>
void run(Watch& watch, const TValues&... values)
{
    if (watch.isWatched()) {
        watch.run([&] { processor::run<TProcessor>(values...); });
        return;
    }
    const LongWork work(watch.getBytes());
    processor::run<TProcessor>(values...);
}

/// The same, and gives back what `TOutput` then holds.
template <class TProcessor, class TOutput, class... TValues>
typename TOutput::StorageType runForOutput(Watch& watch, const TValues&... values)
{
    if (watch.isWatched()) {
        typename TOutput::StorageType output;
        watch.run([&] { output = processor::runForOutput<TProcessor, TOutput>(values...); });
        return output;
    }
    const LongWork work(watch.getBytes());
    return processor::runForOutput<TProcessor, TOutput>(values...);
}

} // namespace orlix::python
