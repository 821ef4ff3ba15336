// Cuts a source path to the part behind a known folder.
#include "ORLIX/ORLIXUtil/RelativePath.h"

#include <algorithm>
#include <string>
#include <vector>

namespace orlix {

namespace {

std::vector<std::string> folders(const boost::filesystem::path& path)
{
    std::vector<std::string> names;
    for (const auto& part : path.lexically_normal()) {
        if (part != ".") {
            names.push_back(part.string());
        }
    }
    return names;
}

} // namespace

boost::filesystem::path getRelativeFromRoot(const boost::filesystem::path& path, const boost::filesystem::path& root)
{
    const std::vector<std::string> pathNames = folders(path);
    const std::vector<std::string> rootNames = folders(root);
    auto found = std::find_end(pathNames.begin(), pathNames.end(), rootNames.begin(), rootNames.end());
    boost::filesystem::path relative;
    if (found == pathNames.end()) {
        return relative;
    }
    for (found += static_cast<std::ptrdiff_t>(rootNames.size()); found != pathNames.end(); ++found) {
        relative /= *found;
    }
    return relative;
}

} // namespace orlix
