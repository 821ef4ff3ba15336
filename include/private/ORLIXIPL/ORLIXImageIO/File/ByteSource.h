// Where the bytes of an image file come from: a file or memory.
#pragma once

#include <boost/filesystem/path.hpp>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace orlix::image::io {

/// Bytes that can be read at any place. One thread at a time.
class ByteSource
{
public:
    virtual ~ByteSource();
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// Copies `bytes` bytes from `offset` on and returns how many were copied: fewer at the end or on an error. Called
    /// from inside C libraries, hence noexcept.
    virtual unsigned long read(unsigned long offset, void* target, unsigned long bytes) noexcept = 0;

    /// The file `name` in the folder of this one; null where there is no such file or this is none itself. Throws as
    /// FileSource does.
    virtual std::unique_ptr<ByteSource> openBeside(const std::string& name) const;

    unsigned long getSize() const { return m_size; }
    const std::string& getName() const { return m_name; } ///< as messages call it

protected:
    ByteSource(std::string name, unsigned long size) : m_name(std::move(name)), m_size(size) {}

    std::string m_name;
    unsigned long m_size;
};

/// A regular file. Small reads, of which directories are full, are served from a window of it. Throws
/// ORLIXImageIOException where it can't be opened or is something else.
class FileSource final : public ByteSource
{
public:
    explicit FileSource(const boost::filesystem::path& file);
    ~FileSource() override;
    unsigned long read(unsigned long offset, void* target, unsigned long bytes) noexcept override;
    std::unique_ptr<ByteSource> openBeside(const std::string& name) const override;

private:
    static constexpr unsigned long g_windowBytes = 16ul << 10;

    unsigned long readFile(unsigned long offset, void* target, unsigned long bytes) noexcept;

    int m_descriptor;
    unsigned long m_windowStart = 0;
    unsigned long m_windowSize = 0;
    std::array<std::byte, g_windowBytes> m_window;
};

/// Memory of the caller's, which must outlive the source.
class MemorySource final : public ByteSource
{
public:
    explicit MemorySource(std::span<const std::byte> bytes);
    ~MemorySource() override;
    unsigned long read(unsigned long offset, void* target, unsigned long bytes) noexcept override;

private:
    std::span<const std::byte> m_bytes;
};

} // namespace orlix::image::io
