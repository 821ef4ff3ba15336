// Writing a file so that it is never seen half written.
#include "ORLIX/ORLIXUtil/FileReplacement.h"

#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orlix {

namespace {

std::string followLinks(const std::string& file)
{
    char resolved[PATH_MAX];
    return realpath(file.c_str(), resolved) != nullptr ? std::string(resolved) : file;
}

/// A name that no other running program and no other thread of this one uses; short, whatever the target is called.
std::string temporaryBeside(const std::string& target)
{
    static std::atomic<unsigned long> g_counter = 0;
    const std::string name = ".orlix-" + std::to_string(getpid()) + "-" + std::to_string(g_counter++) + ".tmp";
    const std::size_t folderEnd = target.rfind('/');
    return folderEnd == std::string::npos ? name : target.substr(0, folderEnd + 1) + name;
}

} // namespace

FileReplacement::FileReplacement(const std::string& target) : m_target(followLinks(target)) {}

FileReplacement::~FileReplacement()
{
    discard();
}

ProcessingResult<bool> FileReplacement::open()
{
    discard();
    if (m_target.empty()) {
        return fail(ENOENT);
    }
    struct stat status = {};
    const bool bExists = stat(m_target.c_str(), &status) == 0;
    if (bExists && !S_ISREG(status.st_mode)) {
        return fail(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    }
    if (bExists && faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) != 0) {
        return fail(errno);
    }
    std::string temporary;
    do {
        temporary = temporaryBeside(m_target);
        m_descriptor = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (m_descriptor < 0 && errno == EEXIST);
    if (m_descriptor < 0) {
        return fail(errno);
    }
    m_temporary = temporary;
    if (bExists && fchmod(m_descriptor, status.st_mode & 07777) != 0) {
        return fail(errno);
    }
    return BoolResult::success();
}

ProcessingResult<bool> FileReplacement::write(const void* data, std::size_t size)
{
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(m_descriptor, next, size);
        if (written < 0 && errno != EINTR) {
            return fail(errno);
        }
        if (written > 0) {
            next += written;
            size -= static_cast<std::size_t>(written);
        }
    }
    return BoolResult::success();
}

ProcessingResult<bool> FileReplacement::commit()
{
    // EINVAL: a file system that has nothing to wait for.
    if (fsync(m_descriptor) != 0 && errno != EINVAL) {
        return fail(errno);
    }
    const int descriptor = m_descriptor;
    m_descriptor = -1;
    if (close(descriptor) != 0 || std::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        return fail(errno);
    }
    m_temporary.clear();
    return BoolResult::success();
}

ProcessingResult<bool> FileReplacement::fail(int error)
{
    discard();
    return BoolResult::failure(formatMessage<eORLIXUtilErrors>(eORLIXUtilErrors::eUnwritableFile, m_target,
                                                               std::generic_category().message(error)));
}

void FileReplacement::discard() noexcept
{
    if (m_descriptor >= 0) {
        close(m_descriptor);
        m_descriptor = -1;
    }
    if (!m_temporary.empty()) {
        unlink(m_temporary.c_str());
        m_temporary.clear();
    }
}

} // namespace orlix
