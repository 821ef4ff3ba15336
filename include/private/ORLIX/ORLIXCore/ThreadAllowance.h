// How many threads oneTBB may have, for all executors together.
#pragma once

namespace orlix::core {

/// So many threads for as long as it lives; what all that live need at most is allowed. Left to itself, oneTBB makes as
/// many threads as there are processors, and writes to stderr where an arena asks for more.
class ThreadAllowance
{
public:
    explicit ThreadAllowance(unsigned long nbThreads);
    ~ThreadAllowance();
    ThreadAllowance(const ThreadAllowance&) = delete;
    ThreadAllowance& operator=(const ThreadAllowance&) = delete;

private:
    unsigned long m_nbThreads;
};

/// Ends all threads of oneTBB, which makes them anew when they are needed. Does nothing where the program itself uses
/// oneTBB, or from inside a run.
void endIdleThreads() noexcept;

/// To be called before oneTBB is given work. Where this library is unloaded, oneTBB's threads end with it; oneTBB
/// itself stays from then on, since they sleep in its code where the program or another thread of it uses oneTBB.
void watchThreads() noexcept;

} // namespace orlix::core
