// Whether a call survives allocations that fail, and what it leaves behind.
#pragma once

#include "exhaustion/Calls.h"
#include "exhaustion/FailingMemory.h"

#include <sys/wait.h>
#include <unistd.h>

#include <iostream>

namespace orlix::test {

/// How a call fared: one of these, or minus the signal that ended its process.
inline constexpr int g_survived = 0, g_wrongException = 1, g_leftFile = 2, g_brokenAfterwards = 3, g_leak = 4;

const char* meaningOf(int status);

struct Round
{
    int status = g_survived;
    bool bFailed = false; ///< an allocation that was chosen has been asked for
};

/// The call with failing memory. Whether it succeeds or fails is the same here; only an exception that callers don't
/// expect is wrong.
Round runOnce(const Call& call, const Inputs& in, const FailingAllocations& failing);

/// Does the call do again what it did before memory ended?
bool worksAgain(const Call& call, const Inputs& in);

/// Does it keep memory, each time that it fails so?
bool leaks(const Call& call, const Inputs& in, const FailingAllocations& failing);

/// In a process of its own, so that one that ends is seen. Returns what `work` returned, or minus a signal.
template <class TWork>
int inChild(TWork&& work)
{
    std::cout << std::flush;
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(30); // for one that hangs
        ::_exit(work());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace orlix::test
