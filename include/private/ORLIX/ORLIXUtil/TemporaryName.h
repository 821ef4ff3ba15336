// The names of temporary files, where a signal handler can read them.
#pragma once

#include <atomic>
#include <climits>
#include <string>

namespace orlix {

/// A place for one name. Any thread and any signal handler may call these functions.
struct TemporaryName
{
    enum class eState { free, taken, named, removing };

    /// Keeps the name; null where no place is free, or the system would refuse such a long name.
    static TemporaryName* add(const std::string& file) noexcept;
    /// Forgets the name that `add` gave a place, or null.
    static void forget(TemporaryName* name) noexcept;
    /// Unlinks the files of all names, and touches nothing but lock-free atomics.
    static void unlinkAll() noexcept;

    std::atomic<eState> state = eState::free;
    char file[PATH_MAX] = {};
};

static_assert(std::atomic<TemporaryName::eState>::is_always_lock_free);

} // namespace orlix
