#include "ORLIX/ORLIXCore/ProcessorQuota.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>

namespace orlix::core {

namespace {

/// The next word of `file` as a whole number; 0 where it is none, as "max" is, or below 0, which means none too.
unsigned long readNumber(std::istream& file)
{
    std::string word;
    file >> word;
    unsigned long number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? number : 0;
}

/// Processors, rounded up, of a quota of microseconds in each period; 0 where one of them is missing.
unsigned long toProcessors(unsigned long quota, unsigned long period)
{
    return period == 0 ? 0 : quota / period + (quota % period != 0 ? 1 : 0);
}

/// "200000 100000" or "max 100000".
unsigned long readUnified(const std::string& folder)
{
    std::ifstream file(folder + "/cpu.max");
    const unsigned long quota = readNumber(file);
    return toProcessors(quota, readNumber(file));
}

unsigned long readVersion1(const std::string& folder)
{
    std::ifstream quota(folder + "/cpu.cfs_quota_us");
    std::ifstream period(folder + "/cpu.cfs_period_us");
    return toProcessors(readNumber(quota), readNumber(period));
}

unsigned long tighter(unsigned long one, unsigned long other)
{
    return one == 0 || other == 0 ? std::max(one, other) : std::min(one, other);
}

/// Of the group and all above it, up to what is mounted at `mount`. In a container the group's path may be that of the
/// system outside; then what can be seen counts.
template <class TRead>
unsigned long readUpwards(const std::string& mount, std::string group, const TRead& read)
{
    unsigned long count = read(mount);
    while (group.size() > 1) {
        count = tighter(count, read(mount + group));
        group.erase(group.rfind('/'));
    }
    return count;
}

bool hasController(const std::string& controllers, const std::string& name)
{
    return ("," + controllers + ",").find("," + name + ",") != std::string::npos;
}

} // namespace

unsigned long countQuotaProcessors(const std::string& root)
{
    const std::string mount = root + "/sys/fs/cgroup";
    unsigned long count = tighter(readUnified(mount), readVersion1(mount + "/cpu"));
    std::ifstream groups(root + "/proc/self/cgroup");
    for (std::string line; std::getline(groups, line);) { // <number>:<controllers>:<path>, no controllers for version 2
        std::istringstream fields(line);
        std::string number;
        std::string controllers;
        std::string path;
        std::getline(fields, number, ':');
        std::getline(fields, controllers, ':');
        std::getline(fields, path);
        if (path.empty() || path.front() != '/') {
            continue;
        }
        if (controllers.empty()) {
            count = tighter(count, readUpwards(mount, path, readUnified));
        } else if (hasController(controllers, "cpu")) {
            count = tighter(count, readUpwards(mount + "/cpu", path, readVersion1));
            count = tighter(count, readUpwards(mount + "/" + controllers, path, readVersion1));
        }
    }
    return count;
}

} // namespace orlix::core
