// The images of one comparison, which live while it runs.
#pragma once

#include "peers/OpenCv.h"
#include "region/RegionCase.h"
#include "support/FlowWork.h"

#include <optional>

namespace orlix::bench {

class RegionFixture
{
public:
    RegionFixture(const RegionCase& work, unsigned long nbThreads) : m_case(work), m_nbThreads(nbThreads) {}

    /// Makes the images, touches all of their memory, and holds library and peer to the number of threads.
    void setUp();
    void tearDown();

    void runOperator() const;
    void runPeer() const { m_peer(); }
    /// Row by row, as one writes it by hand, each thread its share of the rows.
    void copyRows() const;
    /// The same bytes between two plans without gaps.
    const FlowWork& getWork() const { return *m_flow; }

private:
    RegionCase m_case;
    unsigned long m_nbThreads;
    unsigned long m_x = 0;
    unsigned long m_y = 0;
    ImagePtr m_image; ///< the larger one
    ImagePtr m_region;
    ImagePtr m_dense; ///< of the region's size, for the bare loops
    PeerPass m_peer;
    std::optional<FlowWork> m_flow;
};

} // namespace orlix::bench
