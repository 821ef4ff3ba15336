// The file beside the target that a write goes to until it is complete.
#pragma once

#include "ORLIX/ORLIXUtil/FileReplacement.h"

#include <boost/filesystem/path.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace orlix::image::io {

/// A new file in the target's folder, removed by the destructor unless it took the target's place; see FileReplacement
/// for links and permissions. One thread at a time.
class TemporaryFile
{
public:
    /// Throws ORLIXImageIOException where the folder allows no new file, or the target exists and is no regular file or
    /// not to be written to.
    explicit TemporaryFile(const boost::filesystem::path& target);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& getTargetName() const { return m_name; } ///< as the caller named it

    /// Writes all `bytes` bytes, or returns false and keeps the reason, which may come from an earlier write: small
    /// ones are gathered. Called from inside C libraries, hence noexcept.
    bool write(unsigned long offset, const void* source, unsigned long bytes) noexcept;
    /// Copies `bytes` bytes and returns how many: fewer at the end, or after an error, which it keeps as `write` does.
    unsigned long read(unsigned long offset, void* target, unsigned long bytes) noexcept;
    unsigned long getSize() const noexcept { return m_size; }
    std::string getError() const; ///< why writing failed; empty where it did not

    /// Called between pieces of long waiting; false to give up.
    using GoesOn = std::function<bool()>;
    /// Waits until all is on the disk, in pieces; returns early where `goesOn` says so.
    void sync(const GoesOn& goesOn);
    /// Gives the file the target's permissions and name. Throws ORLIXImageIOException where that or any write failed.
    void replaceTarget(FileReplacement::eSync sync);

private:
    static constexpr unsigned long g_gatheredBytes = 64ul << 10;

    bool writeFile(unsigned long offset, const void* source, unsigned long bytes) noexcept;
    bool flush() noexcept;

    std::string m_name;
    FileReplacement m_replacement;
    int m_error = 0;
    unsigned long m_size = 0;
    unsigned long m_gatheredStart = 0; ///< place in the file of the writes that were gathered
    std::vector<std::byte> m_gathered;
};

} // namespace orlix::image::io
