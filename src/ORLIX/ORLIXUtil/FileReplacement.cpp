// Writing a file so that it is never seen half written.
#include "ORLIX/ORLIXUtil/FileReplacement.h"

#include "ORLIX/ORLIXUtil/FileAttributes.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIX/ORLIXUtil/TemporaryName.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orlix {

namespace {

/// With the slash; empty for the current folder.
std::string folderOf(const std::string& file)
{
    return file.substr(0, file.rfind('/') + 1);
}

/// Also a link to a file that isn't there. One of a circle stays as it is: the system refuses it.
std::string followLinks(const std::string& link)
{
    constexpr int g_mostLinks = 40; // as the system has it
    std::string file = link;
    for (int i = 0; i < g_mostLinks; ++i) {
        char next[PATH_MAX];
        const ssize_t length = readlink(file.c_str(), next, sizeof next);
        if (length <= 0) {
            return file;
        }
        const std::string text(next, static_cast<std::size_t>(length));
        file = text.front() == '/' ? text : folderOf(file) + text;
    }
    return link;
}

/// A name that no other running program and no other thread of this one uses; short, whatever the target is called.
std::string temporaryBeside(const std::string& target)
{
    static std::atomic<unsigned long> g_counter = 0;
    return folderOf(target) + ".orlix-" + std::to_string(getpid()) + "-" + std::to_string(g_counter++) + ".tmp";
}

/// 0, or the system's number of the error.
int syncFile(int descriptor) noexcept
{
    while (fsync(descriptor) != 0) {
        if (errno != EINTR) {
            return errno == EINVAL ? 0 : errno; // a file system that has nothing to wait for
        }
    }
    return 0;
}

/// Not every file system offers it, and a folder that can be written to may be one that can't be opened.
void syncFolder(const std::string& folder) noexcept
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        syncFile(descriptor);
        close(descriptor);
    }
}

} // namespace

FileReplacement::FileReplacement(const std::string& target) : m_target(target) {}

FileReplacement::~FileReplacement()
{
    discard();
}

ProcessingResult<bool> FileReplacement::open()
{
    discard();
    m_error = 0;
    if (m_target.empty()) {
        return fail(ENOENT);
    }
    // By the name as given, so that the system can refuse to follow links that somebody else has laid.
    struct stat status = {};
    const bool bExists = stat(m_target.c_str(), &status) == 0;
    if (!bExists && errno != ENOENT) {
        return fail(errno);
    }
    if (bExists && !S_ISREG(status.st_mode)) {
        return fail(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    }
    if (bExists && faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) != 0) {
        return fail(errno);
    }
    m_target = followLinks(m_target);
    // Nobody may read in the new content what the old one was kept from them; a file that is new has the user's mask.
    const mode_t mode = bExists ? 0600 : 0666;
    std::string temporary;
    do {
        TemporaryName::forget(m_name);
        temporary = temporaryBeside(m_target);
        m_name = TemporaryName::add(temporary); // before the file is there, so that no signal comes in between
        m_descriptor = ::open(temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (m_descriptor < 0 && errno == EEXIST);
    if (m_descriptor < 0) {
        return fail(errno);
    }
    m_temporary = std::move(temporary);
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

ProcessingResult<bool> FileReplacement::commit(eSync sync)
{
    const std::string folder = folderOf(m_target);
    copyFileAttributes(m_target, m_descriptor);
    if (const int error = sync == eSync::yes ? syncFile(m_descriptor) : 0; error != 0) {
        return fail(error);
    }
    const int descriptor = m_descriptor;
    m_descriptor = -1;
    if (close(descriptor) != 0 || std::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        return fail(errno);
    }
    m_temporary.clear();
    TemporaryName::forget(std::exchange(m_name, nullptr));
    if (sync == eSync::yes) {
        syncFolder(folder.empty() ? "." : folder);
    }
    return BoolResult::success();
}

ProcessingResult<bool> FileReplacement::fail(int error)
{
    m_error = error;
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
    TemporaryName::forget(std::exchange(m_name, nullptr));
}

void FileReplacement::removeTemporaryFiles() noexcept
{
    TemporaryName::unlinkAll();
}

} // namespace orlix
