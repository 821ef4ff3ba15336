// Writing a file so that it is never seen half written.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <cstddef>
#include <string>

namespace orlix {

/// Collects the new content in a temporary file beside the target and puts it in the target's place at the end. Until
/// `commit` has succeeded the target is as it was; a temporary file that wasn't committed is removed. For one thread.
class ORLIXUTIL_API FileReplacement
{
public:
    /// Touches nothing yet. A symbolic link is followed, so the file that it names is replaced.
    explicit FileReplacement(const std::string& target);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    /// Makes the empty temporary file. Fails if the folder can't be written to or the target is no ordinary file.
    ProcessingResult<bool> open();
    /// Path of the temporary file, for libraries that write by path; empty unless open.
    const std::string& getTemporaryFile() const { return m_temporary; }
    /// Appends `size` bytes.
    ProcessingResult<bool> write(const void* data, std::size_t size);
    /// Waits until the content is on the disk, then renames. A target that existed keeps its permissions.
    ProcessingResult<bool> commit();

private:
    ProcessingResult<bool> fail(int error);
    void discard() noexcept;

    std::string m_target;
    std::string m_temporary;
    int m_descriptor = -1;
};

} // namespace orlix
