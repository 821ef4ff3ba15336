#include "ORLIX/ORLIXCore/KeptLibrary.h"

#include <dlfcn.h>

namespace orlix::core {

namespace {

void* openAgain(const void* address, int flags) noexcept
{
    Dl_info info;
    return dladdr(address, &info) != 0 ? dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | flags) : nullptr;
}

} // namespace

void KeptLibrary::keepThatOf(const std::type_info& type) noexcept
{
    release();
    m_handle = openAgain(&type, 0);
}

void KeptLibrary::release() noexcept
{
    if (m_handle != nullptr) {
        dlclose(m_handle);
        m_handle = nullptr;
    }
}

void keepOwnLibraryForGood() noexcept
{
    static const char g_mark = 0;
    keepLibraryForGood(&g_mark);
}

void keepLibraryForGood(const void* address) noexcept
{
    openAgain(address, RTLD_NODELETE);
}

} // namespace orlix::core
