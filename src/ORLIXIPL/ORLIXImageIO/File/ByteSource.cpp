// Reading bytes from a file descriptor or from memory.
#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace orlix::image::io {

namespace {

std::string systemReason(int error)
{
    return boost::system::system_category().message(error);
}

const char* kindOf(const struct stat& status)
{
    return S_ISDIR(status.st_mode) ? "a folder" : "a device, pipe or socket";
}

} // namespace

ByteSource::~ByteSource() = default;

std::unique_ptr<ByteSource> ByteSource::openBeside(const std::string&) const
{
    return nullptr;
}

FileSource::FileSource(const boost::filesystem::path& file)
    : ByteSource(file.string(), 0), m_descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    if (m_descriptor < 0) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eCannotOpen, m_name, systemReason(errno));
    }
    struct stat status = {};
    const bool bKnown = ::fstat(m_descriptor, &status) == 0;
    const int error = errno;
    if (!bKnown || !S_ISREG(status.st_mode)) {
        ::close(m_descriptor);
        if (!bKnown) {
            raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eReadFailed, m_name, systemReason(error));
        }
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNotARegularFile, m_name, kindOf(status));
    }
    m_size = static_cast<unsigned long>(status.st_size);
}

FileSource::~FileSource()
{
    ::close(m_descriptor);
}

unsigned long FileSource::read(unsigned long offset, void* target, unsigned long bytes) noexcept
{
    if (bytes >= g_windowBytes) {
        return readFile(offset, target, bytes);
    }
    if (offset < m_windowStart || offset - m_windowStart > m_windowSize ||
        m_windowSize - (offset - m_windowStart) < bytes) {
        m_windowStart = offset;
        m_windowSize = readFile(offset, m_window.data(), g_windowBytes);
    }
    const unsigned long skipped = offset - m_windowStart;
    const unsigned long available = std::min(bytes, m_windowSize - skipped);
    std::memcpy(target, m_window.data() + skipped, available);
    return available;
}

std::unique_ptr<ByteSource> FileSource::openBeside(const std::string& name) const
{
    const boost::filesystem::path file = boost::filesystem::path(m_name).parent_path() / name;
    boost::system::error_code ignored;
    return boost::filesystem::exists(file, ignored) ? std::make_unique<FileSource>(file) : nullptr;
}

unsigned long FileSource::readFile(unsigned long offset, void* target, unsigned long bytes) noexcept
{
    unsigned long done = 0;
    while (done < bytes) {
        const long got =
            ::pread(m_descriptor, static_cast<char*>(target) + done, bytes - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            break;
        }
        done += static_cast<unsigned long>(got);
    }
    return done;
}

MemorySource::MemorySource(std::span<const std::byte> bytes) : ByteSource("memory", bytes.size()), m_bytes(bytes) {}

MemorySource::~MemorySource() = default;

unsigned long MemorySource::read(unsigned long offset, void* target, unsigned long bytes) noexcept
{
    if (offset >= m_bytes.size()) {
        return 0;
    }
    const unsigned long available = std::min<unsigned long>(bytes, m_bytes.size() - offset);
    std::memcpy(target, m_bytes.data() + offset, available);
    return available;
}

} // namespace orlix::image::io
