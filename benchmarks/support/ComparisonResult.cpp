#include "support/ComparisonResult.h"

#include "support/Statistics.h"
#include "support/Table.h"

#include <algorithm>

namespace orlix::bench {

std::string toText(const Share& share)
{
    const int digits = share.median < 0.1 ? 3 : 2;
    return toText(share.median, digits) + " ±" + toText(share.spread, digits);
}

const Series* ComparisonResult::find(const std::string& name) const
{
    for (const Series& series : m_series) {
        if (series.name == name) {
            return &series;
        }
    }
    return nullptr;
}

const Series* ComparisonResult::findFastest(std::initializer_list<eRole::domain> roles) const
{
    const Series* fastest = nullptr;
    for (const Series& series : m_series) {
        const bool bWanted = std::find(roles.begin(), roles.end(), series.role) != roles.end();
        if (bWanted && (fastest == nullptr || getSeconds(series) < getSeconds(*fastest))) {
            fastest = &series;
        }
    }
    return fastest;
}

double ComparisonResult::getSeconds(const Series& series) const
{
    return median(series.seconds);
}

double ComparisonResult::getRate(const Series& series) const
{
    return static_cast<double>(m_bytes) / getSeconds(series);
}

std::optional<Share> ComparisonResult::getShare(const Series& series, const Series* reference) const
{
    if (reference == nullptr) {
        return {};
    }
    std::vector<double> ratios(series.seconds.size());
    for (std::size_t round = 0; round < ratios.size(); ++round) {
        ratios[round] = reference->seconds[round] / series.seconds[round];
    }
    return Share{median(ratios), (quantile(ratios, 0.75) - quantile(ratios, 0.25)) / 2};
}

} // namespace orlix::bench
