// Making, filling and renaming the temporary file.
#include "ORLIXIPL/ORLIXImageIO/File/TemporaryFile.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include <boost/filesystem/operations.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace orlix::image::io {

namespace {

std::string systemReason(int error)
{
    return boost::system::system_category().message(error);
}

boost::filesystem::path linksResolved(const boost::filesystem::path& file)
{
    boost::system::error_code error;
    const boost::filesystem::path resolved = boost::filesystem::canonical(file, error);
    return error ? file : resolved;
}

boost::filesystem::path folderOf(const boost::filesystem::path& file)
{
    return file.has_parent_path() ? file.parent_path() : boost::filesystem::path(".");
}

} // namespace

TemporaryFile::TemporaryFile(const boost::filesystem::path& target)
    : m_name(target.string()), m_target(linksResolved(target))
{
    m_gathered.reserve(g_gatheredBytes);
    struct stat status = {};
    if (::stat(m_target.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNotARegularFile, m_name,
                                    S_ISDIR(status.st_mode) ? "a folder" : "a device, pipe or socket");
    }
    const boost::filesystem::path folder = folderOf(m_target);
    do {
        boost::system::error_code error;
        m_path = folder / boost::filesystem::unique_path(".orlix-%%%%-%%%%-%%%%.tmp", error);
        // Mode 0666 under the process's own mask, as any program would make it; mkstemp would make a private file.
        m_descriptor = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (m_descriptor < 0 && errno == EEXIST);
    if (m_descriptor < 0) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eCannotCreate, m_name, folder.string(),
                                    systemReason(errno));
    }
}

TemporaryFile::~TemporaryFile()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
    if (!m_path.empty()) {
        ::unlink(m_path.c_str());
    }
}

bool TemporaryFile::write(unsigned long offset, const void* source, unsigned long bytes) noexcept
{
    m_size = std::max(m_size, offset + bytes);
    const unsigned long end = m_gatheredStart + m_gathered.size();
    if (offset >= m_gatheredStart && offset + bytes <= end) { // a link between directories that is set afterwards
        std::memcpy(m_gathered.data() + (offset - m_gatheredStart), source, bytes);
        return m_error == 0;
    }
    if (!m_gathered.empty() && (offset != end || m_gathered.size() + bytes > g_gatheredBytes) && !flush()) {
        return false;
    }
    if (bytes > g_gatheredBytes) {
        return writeFile(offset, source, bytes);
    }
    if (m_gathered.empty()) {
        m_gatheredStart = offset;
    }
    const auto* const first = static_cast<const std::byte*>(source);
    m_gathered.insert(m_gathered.end(), first, first + bytes); // within what the constructor reserved
    return m_error == 0;
}

bool TemporaryFile::flush() noexcept
{
    const bool bWritten = writeFile(m_gatheredStart, m_gathered.data(), m_gathered.size());
    m_gathered.clear();
    return bWritten;
}

bool TemporaryFile::writeFile(unsigned long offset, const void* source, unsigned long bytes) noexcept
{
    unsigned long done = 0;
    while (done < bytes) {
        const long put = ::pwrite(m_descriptor, static_cast<const char*>(source) + done, bytes - done,
                                  static_cast<off_t>(offset + done));
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put <= 0) {
            m_error = put < 0 ? errno : ENOSPC;
            return false;
        }
        done += static_cast<unsigned long>(put);
    }
    return true;
}

unsigned long TemporaryFile::read(unsigned long offset, void* target, unsigned long bytes) noexcept
{
    if (offset >= m_gatheredStart && offset + bytes <= m_gatheredStart + m_gathered.size()) {
        std::memcpy(target, m_gathered.data() + (offset - m_gatheredStart), bytes);
        return bytes;
    }
    if (!m_gathered.empty() && !flush()) {
        return 0;
    }
    const long got = ::pread(m_descriptor, target, bytes, static_cast<off_t>(offset));
    return got < 0 ? 0 : static_cast<unsigned long>(got);
}

std::string TemporaryFile::getError() const
{
    return m_error == 0 ? std::string() : systemReason(m_error);
}

void TemporaryFile::replaceTarget()
{
    if (m_error != 0 || !flush()) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eWriteFailed, m_name, getError());
    }
    struct stat status = {};
    if (::stat(m_target.c_str(), &status) == 0) {
        // A file system without permissions refuses; the new file's own are as good there.
        [[maybe_unused]] const int ignored = ::fchmod(m_descriptor, status.st_mode & 07777);
    }
    const int descriptor = std::exchange(m_descriptor, -1);
    if (::close(descriptor) != 0) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eWriteFailed, m_name, systemReason(errno));
    }
    if (::rename(m_path.c_str(), m_target.c_str()) != 0) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eCannotReplace, m_name, systemReason(errno));
    }
    m_path.clear();
}

} // namespace orlix::image::io
