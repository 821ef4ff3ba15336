// The file beside the target that a write goes to until it is complete.
#pragma once

#include <boost/filesystem/path.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace orlix::image::io {

/// A new file in the target's folder, removed by the destructor unless it took the target's place. A target that is a
/// symbolic link stays one: the file that it names is replaced. One thread at a time.
class TemporaryFile
{
public:
    /// Throws ORLIXImageIOException where the folder allows no new file, or the target exists and is no regular file.
    explicit TemporaryFile(const boost::filesystem::path& target);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& getTargetName() const { return m_name; } ///< as the caller named it

    /// Writes all `bytes` bytes, or returns false and keeps the reason, which may come from an earlier write: small
    /// ones are gathered. Called from inside C libraries, hence noexcept.
    bool write(unsigned long offset, const void* source, unsigned long bytes) noexcept;
    unsigned long read(unsigned long offset, void* target, unsigned long bytes) noexcept;
    unsigned long getSize() const noexcept { return m_size; }
    std::string getError() const; ///< why writing failed; empty where it did not

    /// Gives the file the target's permissions and name. Throws ORLIXImageIOException where that or any write failed.
    void replaceTarget();

private:
    static constexpr unsigned long g_gatheredBytes = 64ul << 10;

    bool writeFile(unsigned long offset, const void* source, unsigned long bytes) noexcept;
    bool flush() noexcept;

    std::string m_name;
    boost::filesystem::path m_target; ///< links resolved
    boost::filesystem::path m_path;
    int m_descriptor = -1;
    int m_error = 0;
    unsigned long m_size = 0;
    unsigned long m_gatheredStart = 0; ///< place in the file of the writes that were gathered
    std::vector<std::byte> m_gathered;
};

} // namespace orlix::image::io
