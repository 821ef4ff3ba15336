// Every kind of executor, by name, and one put in place for a while.
#pragma once

#include "support/Sanitizers.h"
#include "support/TestSettings.h"

#include <string>
#include <utility>
#include <vector>

namespace orlix::testing {

/// ThreadSanitizer can't see how oneTBB synchronises, so it is left out under it.
#ifdef ORLIX_THREAD_SANITIZER
inline constexpr bool g_bTbbIsVisible = false;
#else
inline constexpr bool g_bTbbIsVisible = true;
#endif

struct NamedExecutor
{
    std::string name;
    boost::shared_ptr<core::BaseExecutor> executor;
};

/// All kinds, on one thread and on several.
inline std::vector<NamedExecutor> makeAllExecutors()
{
    std::vector<NamedExecutor> executors = {{"threads:1", core::makePlainThreadExecutor(1)},
                                            {"threads:2", core::makePlainThreadExecutor(2)},
                                            {"threads:8", core::makePlainThreadExecutor(8)},
                                            {"shuffled:1", core::makeShuffledExecutor(1)},
                                            {"shuffled:77", core::makeShuffledExecutor(77)}};
    if (g_bTbbIsVisible) {
        for (const unsigned long nbThreads : {0UL, 1UL, 2UL, 8UL, 64UL}) {
            executors.push_back({"tbb:" + std::to_string(nbThreads), core::makeTbbExecutor(nbThreads)});
        }
    }
    return executors;
}

/// The executor of the process for as long as it lives; then that which the environment asks for is back.
class ScopedExecutor
{
public:
    explicit ScopedExecutor(const boost::shared_ptr<core::BaseExecutor>& executor) { core::setExecutor(executor); }
    ~ScopedExecutor() { core::setExecutor(makeConfiguredExecutor()); }
    ScopedExecutor(const ScopedExecutor&) = delete;
    ScopedExecutor& operator=(const ScopedExecutor&) = delete;
};

} // namespace orlix::testing
