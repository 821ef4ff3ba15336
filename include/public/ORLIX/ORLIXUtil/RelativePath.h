// Cuts a source path to the part behind a known folder.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <boost/filesystem/path.hpp>

namespace orlix {

/// The part of `path` behind the last place where `root`, one folder or several in a row, stands in it:
/// ("/home/me/orlix/include/public/ORLIX/A.h", "include/public") gives "ORLIX/A.h". Empty if `root` is empty or isn't
/// in `path`. Compares whole folder names and touches no file.
ORLIXUTIL_API boost::filesystem::path getRelativeFromRoot(const boost::filesystem::path& path,
                                                          const boost::filesystem::path& root);

} // namespace orlix
