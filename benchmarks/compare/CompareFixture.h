// The images of one comparison, which live while it runs.
#pragma once

#include "compare/CompareCase.h"
#include "peers/OpenCv.h"
#include "support/FlowWork.h"

#include <optional>

namespace orlix::bench {

class CompareFixture
{
public:
    CompareFixture(const CompareCase& work, const CompareSize& size, unsigned long nbThreads)
        : m_case(work), m_size(size), m_nbThreads(nbThreads)
    {}

    /// Makes two equal images, touches all of their memory, and holds library and peer to the number of threads.
    void setUp();
    void tearDown();

    void runOperator() const;
    void runPeer() const { m_peer(); }
    void runArrays() const { m_arrays(); }
    /// `memcmp` of both, each thread its part.
    void runLibrary() const;
    /// A bare loop that reads both.
    void runLoop(FlowLoop loop) const;
    bool hasPeer() const;
    /// Exact and absolute comparisons alone have one.
    bool hasArrays() const { return static_cast<bool>(makeArrays(*makeSmall(), *makeSmall())); }

private:
    PeerPass makePeer(const image::BaseImage& first, const image::BaseImage& second) const;
    PeerPass makeArrays(const image::BaseImage& first, const image::BaseImage& second) const;
    ImagePtr makeSmall() const; ///< to find out what there is

    CompareCase m_case;
    CompareSize m_size;
    unsigned long m_nbThreads;
    boost::shared_ptr<const imaproc::attr::ImgComparisonTolerance> m_tolerance;
    ImagePtr m_first;
    ImagePtr m_second;
    PeerPass m_peer;
    PeerPass m_arrays;
    std::optional<FlowWork> m_firstWork;
    std::optional<FlowWork> m_secondWork;
    std::optional<FlowWork> m_bothWork; ///< the second in the destination's place
};

} // namespace orlix::bench
