// What a comparison found: times of each candidate, and rates of one as a share of another's.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace orlix::bench {

/// What a candidate is there for.
struct eRole
{
    enum domain {
        eOperator = 0,      ///< what is judged
        eOrdinaryLoop = 1,  ///< a bare loop with ordinary stores
        eStreamingLoop = 2, ///< a bare loop with stores past the caches
        ePeer = 3,          ///< what people would call instead
        eOther = 4
    };
    ORLIX_ENUMERATION(eRole, eOperator);
};

/// Seconds a pass, one figure a round.
struct Series
{
    std::string name;
    eRole role;
    std::vector<double> seconds;
};

/// A ratio's median over the rounds, and half the distance between its quartiles.
struct Share
{
    double median;
    double spread;
};

/// "0.93 ±0.02".
std::string toText(const Share& share);

class ComparisonResult
{
public:
    ComparisonResult(std::string title, unsigned long bytes, std::vector<Series> series, unsigned long nbPreemptions)
        : m_title(std::move(title)), m_bytes(bytes), m_series(std::move(series)), m_nbPreemptions(nbPreemptions)
    {}

    const std::string& getTitle() const { return m_title; }
    unsigned long getBytes() const { return m_bytes; } ///< read and written in a pass
    const std::vector<Series>& getSeries() const { return m_series; }
    unsigned long getNbRounds() const { return m_series.empty() ? 0 : m_series.front().seconds.size(); }

    /// How often the system took a processor away from this process while it measured.
    unsigned long getNbPreemptions() const { return m_nbPreemptions; }

    /// Null where no candidate has the name.
    const Series* find(const std::string& name) const;
    /// The one of the shortest median among those of the roles; null where there is none.
    const Series* findFastest(std::initializer_list<eRole::domain> roles) const;

    double getSeconds(const Series& series) const; ///< median
    double getRate(const Series& series) const;    ///< bytes a second at the median
    /// Rate of `series` as a part of `reference`'s, taken round by round; nothing for a null reference.
    std::optional<Share> getShare(const Series& series, const Series* reference) const;

private:
    std::string m_title;
    unsigned long m_bytes;
    std::vector<Series> m_series;
    unsigned long m_nbPreemptions;
};

} // namespace orlix::bench
