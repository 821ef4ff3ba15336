// Keeps a shared library loaded for as long as its code may run.
#pragma once

#include <typeinfo>

namespace orlix::core {

/// A program may unload a library while a run of one of its processors is under way on another thread. The library
/// then goes when the run has ended.
class KeptLibrary
{
public:
    KeptLibrary() = default;
    ~KeptLibrary() { release(); }
    KeptLibrary(const KeptLibrary&) = delete;
    KeptLibrary& operator=(const KeptLibrary&) = delete;

    /// Of the library that defines the class; does nothing for a class of the program itself.
    void keepThatOf(const std::type_info& type) noexcept;
    void release() noexcept;

private:
    void* m_handle = nullptr;
};

/// From now on ORLIXCore and what it links stay until the process ends: threads return through their code even when
/// all runs are over.
void keepOwnLibraryForGood() noexcept;
/// The same for the library that `address` lies in.
void keepLibraryForGood(const void* address) noexcept;

} // namespace orlix::core
