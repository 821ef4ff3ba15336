// Standing in for the system's functions.
#undef _FORTIFY_SOURCE // whose own versions, inline in the headers, can't be defined once more

#include "io-faults/FaultySystem.h"

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace orlix::test {

namespace {

FaultySystem g_system;

bool isInterrupted()
{
    static bool g_bNext = false;
    g_bNext = g_system.bInterrupts && !g_bNext;
    if (g_bNext) {
        errno = EINTR;
    }
    return g_bNext;
}

std::size_t moved(std::size_t bytes)
{
    return g_system.bShort ? (bytes + 1) / 2 : bytes;
}

} // namespace

FaultySystem& system()
{
    return g_system;
}

} // namespace orlix::test

using namespace orlix::test;

#pragma GCC visibility push(default) // seen by the libraries
extern "C" {

ssize_t pread(int file, void* target, std::size_t bytes, off_t offset)
{
    if (isInterrupted()) {
        return -1;
    }
    if (g_system.readError != 0) {
        errno = g_system.readError;
        return -1;
    }
    return ::syscall(SYS_pread64, file, target, moved(bytes), offset);
}

ssize_t pwrite(int file, const void* source, std::size_t bytes, off_t offset)
{
    return isInterrupted() ? -1 : ::syscall(SYS_pwrite64, file, source, moved(bytes), offset);
}

ssize_t write(int file, const void* source, std::size_t bytes)
{
    return isInterrupted() ? -1 : ::syscall(SYS_write, file, source, moved(bytes));
}

int fsync(int file)
{
    g_system.events += "sync ";
    if (isInterrupted()) {
        return -1;
    }
    if (g_system.syncError != 0) {
        errno = g_system.syncError;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, file));
}

int rename(const char* from, const char* to) noexcept
{
    g_system.events += "rename ";
    return static_cast<int>(::syscall(SYS_rename, from, to));
}

} // extern "C"
#pragma GCC visibility pop
