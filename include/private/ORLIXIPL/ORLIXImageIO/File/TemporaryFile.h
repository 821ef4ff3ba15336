// The file beside the target that a write goes to until it is complete.
#pragma once

#include <boost/filesystem/path.hpp>

#include <string>

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

    /// Writes all `bytes` bytes, or returns false and keeps the reason. Called from inside C libraries, hence noexcept.
    bool write(unsigned long offset, const void* source, unsigned long bytes) noexcept;
    unsigned long read(unsigned long offset, void* target, unsigned long bytes) noexcept;
    unsigned long getSize() const noexcept { return m_size; }
    std::string getError() const; ///< why writing failed; empty where it did not

    /// Gives the file the target's permissions and name. Throws ORLIXImageIOException where that or any write failed.
    void replaceTarget();

private:
    std::string m_name;
    boost::filesystem::path m_target; ///< links resolved
    boost::filesystem::path m_path;
    int m_descriptor = -1;
    int m_error = 0;
    unsigned long m_size = 0;
};

} // namespace orlix::image::io
