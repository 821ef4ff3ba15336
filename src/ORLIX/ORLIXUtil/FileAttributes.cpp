// Copying what a file has beside its content.
#include "ORLIX/ORLIXUtil/FileAttributes.h"

#include <cstring>
#include <string_view>
#include <vector>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace orlix {

namespace {

/// The mode that the file may have, its owner and group being set as far as the system let us.
mode_t takeOwner(const struct stat& from, int descriptor)
{
    const mode_t mode = from.st_mode & 07777;
    if (fchown(descriptor, from.st_uid, from.st_gid) == 0) {
        return mode;
    }
    if (fchown(descriptor, static_cast<uid_t>(-1), from.st_gid) == 0) {
        return mode & static_cast<mode_t>(~S_ISUID);
    }
    const mode_t others = mode & S_IRWXO;
    return (mode & (S_IRWXU | S_IRWXO | S_ISVTX)) | (mode & others << 3);
}

bool vouchesForContent(std::string_view name)
{
    return name == "security.capability" || name == "security.ima" || name == "security.evm";
}

void takeExtendedAttributes(const std::string& from, int descriptor)
{
    const ssize_t room = listxattr(from.c_str(), nullptr, 0);
    if (room <= 0) {
        return;
    }
    std::string names(static_cast<std::size_t>(room), '\0');
    const ssize_t length = listxattr(from.c_str(), names.data(), names.size());
    names.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    std::vector<char> value;
    for (const char* name = names.c_str(); *name != '\0'; name += std::strlen(name) + 1) {
        const ssize_t size = vouchesForContent(name) ? -1 : getxattr(from.c_str(), name, nullptr, 0);
        if (size < 0) {
            continue;
        }
        value.resize(static_cast<std::size_t>(size));
        if (getxattr(from.c_str(), name, value.data(), value.size()) == size) {
            fsetxattr(descriptor, name, value.data(), value.size(), 0);
        }
    }
}

} // namespace

void copyFileAttributes(const std::string& from, int descriptor)
{
    struct stat status = {};
    if (stat(from.c_str(), &status) != 0) {
        return;
    }
    // A file system without permissions refuses; the new file's own are as good there.
    [[maybe_unused]] const int ignored = fchmod(descriptor, takeOwner(status, descriptor));
    takeExtendedAttributes(from, descriptor); // last: an access control list holds more than the mode
}

} // namespace orlix
