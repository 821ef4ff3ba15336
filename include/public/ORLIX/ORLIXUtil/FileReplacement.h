// Writing a file so that it is never seen half written.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <cstddef>
#include <string>

namespace orlix {

struct TemporaryName;

/// Collects the new content in a temporary file beside the target and puts it in the target's place at the end. Until
/// `commit` has succeeded the target is as it was; a temporary file that wasn't committed is removed. For one thread.
/// links       A symbolic link stays: the file that it names is replaced, or made where it isn't there. A file with
///             several hard links is replaced under this name alone; the other names keep the old content.
/// permissions The temporary file of a target that exists is the user's alone until it takes, at the end, the target's
///             mode, owner, group and extended attributes, as far as the user may give them away. Where the group
///             can't be kept, the new one gets no more than all others have.
class ORLIXUTIL_API FileReplacement
{
public:
    /// Touches nothing yet.
    explicit FileReplacement(const std::string& target);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    /// Makes the empty temporary file. Fails if the folder can't be written to, or the target is no ordinary file or
    /// one that the user may not write to.
    ProcessingResult<bool> open();
    /// Path of the temporary file, for libraries that write by path; empty unless open.
    const std::string& getTemporaryFile() const { return m_temporary; }
    /// The temporary file, for reading and writing at any place; -1 unless open.
    int getDescriptor() const { return m_descriptor; }
    /// Appends `size` bytes.
    ProcessingResult<bool> write(const void* data, std::size_t size);

    enum class eSync {
        no, ///< leaves it to the system when the content reaches the disk: a power cut may lose old and new
        yes ///< waits for the content before, and as far as the file system offers it for the folder after renaming
    };
    /// Renames the temporary file to the target.
    ProcessingResult<bool> commit(eSync sync = eSync::yes);

    /// Removes the temporary files of all objects of this process, up to 32 at a time, for a process that ends without
    /// destructors: a signal handler may call it, in any thread. A `commit` that comes later fails.
    static void removeTemporaryFiles() noexcept;

    /// The system's number of what failed last; 0 if nothing did.
    int getSystemError() const { return m_error; }

private:
    ProcessingResult<bool> fail(int error);
    void discard() noexcept;

    std::string m_target; ///< links followed
    std::string m_temporary;
    TemporaryName* m_name = nullptr; ///< where removeTemporaryFiles finds it; null where all places are taken
    int m_descriptor = -1;
    int m_error = 0;
};

} // namespace orlix
