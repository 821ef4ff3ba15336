// Who runs the elements of a provider: the one door to threads.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <type_traits>

namespace orlix::core {

/// A call to a function object that outlives the call; copies nothing and allocates nothing.
class ElementBody
{
public:
    template <class TFunction>
    ElementBody(TFunction& function) // NOLINT: a view of a function object
        : m_object(&function),
          m_call([](void* object, unsigned long element) { (*static_cast<TFunction*>(object))(element); })
    {}
    void operator()(unsigned long element) const { m_call(m_object, element); }

private:
    void* m_object;
    void (*m_call)(void*, unsigned long);
};

/// Runs elements. Implementations are shared by all runs and safe from any thread; calls nest.
class ORLIXCORE_API BaseExecutor
{
public:
    virtual ~BaseExecutor();

    /// Threads that elements of one call can be on at a time, the calling one included.
    virtual unsigned long getNbThreads() const = 0;
    /// Calls `body` once for every element of [0, nbElements) and returns when all calls have ended. `cost` is the
    /// number of bytes that all elements touch; work that one thread does faster alone stays on the calling thread.
    /// `body` must not throw.
    virtual void forEach(unsigned long nbElements, unsigned long cost, const ElementBody& body) = 0;
    /// The same, and a thread that waits for others inside this call takes up no work from outside of it: what it took
    /// up could wait for something that this thread has begun.
    virtual void forEachApart(unsigned long nbElements, unsigned long cost, const ElementBody& body)
    {
        forEach(nbElements, cost, body);
    }
    /// Runs `task` on another thread as soon as one is free. `task` must not throw. Throws where no thread can be had.
    virtual void post(boost::function<void()> task) = 0;
};

/// The executor of every run that starts from now on. Default: oneTBB, in the arena of the calling thread.
ORLIXCORE_API BaseExecutor& accessExecutor();
/// Replaces it for the whole process; null brings the default back. Runs under way keep the one that they started with,
/// so replace it while none is.
ORLIXCORE_API void setExecutor(const boost::shared_ptr<BaseExecutor>& executor);

/// Threads that the process may use: its affinity mask and its control group's quota respected. At least 1.
ORLIXCORE_API unsigned long getNbUsableThreads();
/// The most threads that can work at a time: 256, or as many as the machine has processors where those are more.
ORLIXCORE_API unsigned long getMostThreads();
/// Sets the default executor to `nbThreads` threads for the whole process; 0 means all that are usable. Threads that it
/// no longer needs end, unless the program itself uses oneTBB at the time. Throws ORLIXCoreException for more than
/// `getMostThreads`.
ORLIXCORE_API void setNbThreads(unsigned long nbThreads);

/// An executor on oneTBB. 0 threads: works in the arena that the calling thread is in, as a program with an arena of
/// its own wants it; else in an arena of its own with so many threads. 1 thread never enters oneTBB but for `post`.
/// Throws ORLIXCoreException for more than `getMostThreads`.
///
/// oneTBB's threads don't exist in a forked child. There such an executor runs elements on the calling thread and posts
/// each task to a thread of its own; one that is made in the child makes plain threads, as many as are asked for. The
/// child of a process with a single thread lacks nothing and uses oneTBB as ever.
ORLIXCORE_API boost::shared_ptr<BaseExecutor> makeTbbExecutor(unsigned long nbThreads);
/// An executor on the calling thread that takes the elements of each call in an order shuffled by `seed`.
ORLIXCORE_API boost::shared_ptr<BaseExecutor> makeShuffledExecutor(unsigned long seed);
/// An executor on plain threads that are made per call, for tools that cannot see how oneTBB synchronises.
ORLIXCORE_API boost::shared_ptr<BaseExecutor> makePlainThreadExecutor(unsigned long nbThreads);

} // namespace orlix::core
