// Measures several ways to do the same work in turn, so that what disturbs the machine hits all of them alike.
#pragma once

#include "support/ComparisonResult.h"

#include <functional>
#include <string>
#include <vector>

namespace orlix::bench {

/// One of the ways.
struct Candidate
{
    std::string name;
    eRole role;
    std::function<void()> pass;         ///< the work that is timed
    std::function<void()> prepare = {}; ///< done before each sample, untimed; may be empty
    bool bSinglePass = false;           ///< a sample is one pass that nothing warms up
};

struct eClock
{
    enum domain {
        eWall = 0,
        eThreadTime = 1 ///< processor time of the calling thread: work that never waits, whoever else runs meanwhile
    };
    ORLIX_ENUMERATION(eClock, eWall);
};

class Comparison
{
public:
    /// `bytes` is what one pass reads and writes.
    Comparison(std::string title, eClock clock, unsigned long bytes)
        : m_title(std::move(title)), m_clock(clock), m_bytes(bytes)
    {}

    /// Done at the begin and at the end of a run, for what the candidates share.
    void setFixture(std::function<void()> setUp, std::function<void()> tearDown)
    {
        m_setUp = std::move(setUp);
        m_tearDown = std::move(tearDown);
    }
    void add(Candidate candidate) { m_candidates.push_back(std::move(candidate)); }
    const std::vector<Candidate>& getCandidates() const { return m_candidates; }
    unsigned long getBytes() const { return m_bytes; }

    /// Rounds in which every candidate gives one sample, in an order that changes from round to round, until `seconds`
    /// have gone by; 5 rounds at least, or 1 where `seconds` is 0. A sample is as many passes as fill a quarter of a
    /// millisecond, after a pass that brings the caches into the state that the candidate itself leaves them in. By the
    /// wall clock, a short sample that was preempted is taken again, a few times at most, and the shortest one counts.
    ComparisonResult run(double seconds) const;

private:
    std::vector<Series> measure(double seconds) const;
    unsigned long findPasses(const Candidate& candidate) const;
    double sampleUndisturbed(const Candidate& candidate, unsigned long nbPasses, bool bShort) const;
    double sample(const Candidate& candidate, unsigned long nbPasses) const;

    std::string m_title;
    eClock m_clock;
    unsigned long m_bytes;
    std::function<void()> m_setUp = [] {};
    std::function<void()> m_tearDown = [] {};
    std::vector<Candidate> m_candidates;
};

} // namespace orlix::bench
