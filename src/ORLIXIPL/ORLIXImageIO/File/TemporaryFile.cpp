// Making, filling and renaming the temporary file.
#include "ORLIXIPL/ORLIXImageIO/File/TemporaryFile.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include <boost/system/error_code.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_syncedBytes = 4ul << 20;

std::string systemReason(int error)
{
    return boost::system::system_category().message(error);
}

std::string folderOf(const std::string& file)
{
    const std::size_t end = file.rfind('/');
    return end == std::string::npos ? "." : end == 0 ? "/" : file.substr(0, end);
}

/// Is it the target that refuses, not its folder?
bool isReadOnly(const std::string& target)
{
    return ::faccessat(AT_FDCWD, target.c_str(), F_OK, AT_EACCESS) == 0 &&
           ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0;
}

} // namespace

TemporaryFile::TemporaryFile(const boost::filesystem::path& target) : m_name(target.string()), m_replacement(m_name)
{
    m_gathered.reserve(g_gatheredBytes);
    if (m_replacement.open().getValue()) {
        return;
    }
    const int error = m_replacement.getSystemError();
    if (error == EISDIR || error == EINVAL) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNotARegularFile, m_name,
                                    error == EISDIR ? "a folder" : "a device, pipe or socket");
    }
    if (isReadOnly(m_name)) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eReadOnly, m_name, systemReason(error));
    }
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eCannotCreate, m_name, folderOf(m_name),
                                systemReason(error));
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
        const long put = ::pwrite(m_replacement.getDescriptor(), static_cast<const char*>(source) + done, bytes - done,
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
    unsigned long done = 0;
    while (done < bytes) {
        const long got = ::pread(m_replacement.getDescriptor(), static_cast<char*>(target) + done, bytes - done,
                                 static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            m_error = got < 0 ? errno : m_error;
            break;
        }
        done += static_cast<unsigned long>(got);
    }
    return done;
}

std::string TemporaryFile::getError() const
{
    return m_error == 0 ? std::string() : systemReason(m_error);
}

void TemporaryFile::sync(const GoesOn& goesOn)
{
    if (m_error != 0 || !flush()) {
        return; // what replaceTarget tells of
    }
    // A file system that has no such thing refuses at once, and the wait is then the last one, for the whole.
    constexpr unsigned g_untilWritten =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    for (unsigned long start = 0; start < m_size && goesOn(); start += g_syncedBytes) {
        ::sync_file_range(m_replacement.getDescriptor(), static_cast<off_t>(start), g_syncedBytes, g_untilWritten);
    }
}

void TemporaryFile::replaceTarget(FileReplacement::eSync sync)
{
    if (m_error != 0 || !flush()) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eWriteFailed, m_name, getError());
    }
    if (!m_replacement.commit(sync).getValue()) {
        const int error = m_replacement.getSystemError();
        const bool bContent = error == EIO || error == ENOSPC || error == EDQUOT; // renaming fails otherwise
        raise<eORLIXImageIOMessage>(
            ORLIX_HERE, bContent ? eORLIXImageIOMessage::eWriteFailed : eORLIXImageIOMessage::eCannotReplace, m_name,
            systemReason(error));
    }
}

} // namespace orlix::image::io
