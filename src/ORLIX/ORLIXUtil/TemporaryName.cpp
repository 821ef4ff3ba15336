// The names of temporary files, where a signal handler can read them.
#include "ORLIX/ORLIXUtil/TemporaryName.h"

#include <array>
#include <cstring>

#include <unistd.h>

namespace orlix {

namespace {

constinit std::array<TemporaryName, 32> g_names;

} // namespace

TemporaryName* TemporaryName::add(const std::string& file) noexcept
{
    if (file.size() >= PATH_MAX) {
        return nullptr;
    }
    for (TemporaryName& name : g_names) {
        eState expected = eState::free;
        if (name.state.compare_exchange_strong(expected, eState::taken)) {
            std::memcpy(name.file, file.c_str(), file.size() + 1);
            name.state.store(eState::named);
            return &name;
        }
    }
    return nullptr;
}

void TemporaryName::forget(TemporaryName* name) noexcept
{
    // The place of a name that another thread is reading stays taken. No second file ever gets that name.
    eState expected = eState::named;
    if (name != nullptr) {
        name->state.compare_exchange_strong(expected, eState::free);
    }
}

void TemporaryName::unlinkAll() noexcept
{
    for (TemporaryName& name : g_names) {
        eState expected = eState::named;
        if (name.state.compare_exchange_strong(expected, eState::removing)) {
            unlink(name.file);
            name.state.store(eState::named);
        }
    }
}

} // namespace orlix
