#include "ORLIX/ORLIXBaseProcessing/IdleProcessors.h"

#include "ORLIX/ORLIXBaseProcessing/ClassStatics.h"
#include "ORLIX/ORLIXCore/ProcessEnding.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include <pthread.h>

namespace orlix::processor {

namespace {

struct ThreadPools
{
    std::map<std::string, IdleProcessors> classes;
    ThreadPools* previous = nullptr;
    ThreadPools* next = nullptr;
};

/// The pools of all threads. Never destroyed, since threads may end after the static objects have. A thread's end is
/// told by a key of the system's: the destructor of a thread-local object would keep this library loaded as long as the
/// thread lives.
struct Registry
{
    std::mutex mutex;
    ThreadPools* first = nullptr;
    pthread_key_t key = 0;
    bool bKey = false;
};

Registry& accessRegistry()
{
    constinit static Registry g_registry;
    return g_registry;
}

void unlink(Registry& registry, ThreadPools& pools)
{
    (pools.previous != nullptr ? pools.previous->next : registry.first) = pools.next;
    if (pools.next != nullptr) {
        pools.next->previous = pools.previous;
    }
}

void endThread(void* value)
{
    const std::unique_ptr<ThreadPools> pools(static_cast<ThreadPools*>(value));
    Registry& registry = accessRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    unlink(registry, *pools);
}

/// This library's own end.
[[gnu::destructor]] void endThreads()
{
    Registry& registry = accessRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    if (core::isProcessEnding()) {
        return;
    }
    if (registry.bKey) {
        ::pthread_key_delete(registry.key);
    }
    while (registry.first != nullptr) {
        const std::unique_ptr<ThreadPools> pools(registry.first);
        unlink(registry, *pools);
    }
}

ThreadPools& accessThreadPools()
{
    static thread_local ThreadPools* t_pools = nullptr;
    if (t_pools == nullptr) {
        core::watchProcessEnd();
        auto pools = std::make_unique<ThreadPools>();
        Registry& registry = accessRegistry();
        const std::lock_guard<std::mutex> lock(registry.mutex);
        if (!registry.bKey) {
            registry.bKey = ::pthread_key_create(&registry.key, &endThread) == 0;
        }
        if (registry.bKey) {
            ::pthread_setspecific(registry.key, pools.get());
        }
        pools->next = registry.first;
        if (registry.first != nullptr) {
            registry.first->previous = pools.get();
        }
        registry.first = t_pools = pools.release();
    }
    return *t_pools;
}

} // namespace

IdleProcessors& accessIdleProcessors(const std::type_info& type)
{
    return accessThreadPools().classes[details::makeClassKey(type)];
}

void endIdleProcessors() noexcept
{
    Registry& registry = accessRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    if (core::isProcessEnding()) {
        return;
    }
    for (ThreadPools* pools = registry.first; pools != nullptr; pools = pools->next) {
        for (auto& [name, processors] : pools->classes) {
            processors.clear();
        }
    }
}

} // namespace orlix::processor
