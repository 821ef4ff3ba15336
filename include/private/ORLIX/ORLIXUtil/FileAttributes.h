// What a file has beside its content: mode, owner, group and extended attributes.
#pragma once

#include <string>

namespace orlix {

/// Gives the open file `descriptor` what the file `from` has, as far as the system lets the user; nothing where `from`
/// doesn't exist. Set-user and set-group bits are kept only with their owner and group, and a group that can't be kept
/// leaves to the new one what all others may. Attributes that vouch for the content of `from` stay behind.
void copyFileAttributes(const std::string& from, int descriptor);

} // namespace orlix
