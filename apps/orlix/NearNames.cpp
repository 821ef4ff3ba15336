// Names that somebody who mistyped one may have meant.
#include "NearNames.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/algorithm/string/join.hpp>

#include <algorithm>
#include <numeric>

namespace orlix::cli {

namespace {

constexpr std::size_t g_maxNames = 5;

/// Letters to insert, drop or exchange, and neighbours to swap, to get from one to the other.
std::size_t distance(const std::string& from, const std::string& to)
{
    std::vector<std::size_t> before(to.size() + 1); // the row before `last`
    std::vector<std::size_t> last(to.size() + 1);   // to each start of `to`, from the start of `from` that is reached
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(last.begin(), last.end(), 0);
    for (std::size_t i = 0; i < from.size(); ++i) {
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            row[j + 1] = std::min({last[j] + (from[i] == to[j] ? 0 : 1), last[j + 1] + 1, row[j] + 1});
            if (i > 0 && j > 0 && from[i] == to[j - 1] && from[i - 1] == to[j]) {
                row[j + 1] = std::min(row[j + 1], before[j - 1] + 1);
            }
        }
        std::swap(before, last);
        std::swap(last, row);
    }
    return last.back();
}

struct Candidate
{
    std::size_t distance;
    std::string name;
};

} // namespace

std::vector<std::string> nearNames(const std::string& given, const std::vector<std::string>& names)
{
    const std::string wanted = boost::algorithm::to_lower_copy(given);
    std::vector<Candidate> candidates;
    for (const std::string& name : names) {
        const std::string lower = boost::algorithm::to_lower_copy(name);
        const std::size_t away = distance(wanted, lower);
        const bool bHolds = wanted.size() > 1 && lower.find(wanted) != std::string::npos;
        if (bHolds || away <= std::max<std::size_t>(1, wanted.size() / 4)) {
            candidates.push_back({away, name});
        }
    }
    std::ranges::stable_sort(candidates, {}, &Candidate::distance);
    candidates.resize(std::min(candidates.size(), g_maxNames));
    std::vector<std::string> near;
    std::ranges::transform(candidates, std::back_inserter(near), &Candidate::name);
    return near;
}

std::string nearHint(const std::string& given, const std::vector<std::string>& names)
{
    const std::vector<std::string> near = nearNames(given, names);
    return near.empty() ? "" : (near.size() == 1 ? "; near it is " : "; near it are ") + joinNames(near);
}

std::string joinNames(const std::vector<std::string>& names)
{
    return boost::algorithm::join(names, ", ");
}

} // namespace orlix::cli
