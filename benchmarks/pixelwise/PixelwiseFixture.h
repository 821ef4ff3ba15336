// The images of one comparison, which live while it runs.
#pragma once

#include "pixelwise/PixelwiseCase.h"
#include "support/FlowWork.h"

#include <optional>

namespace orlix::bench {

class PixelwiseFixture
{
public:
    PixelwiseFixture(const PixelwiseCase& work, unsigned long sizeX, unsigned long sizeY, unsigned long nbThreads)
        : m_case(work), m_sizeX(sizeX), m_sizeY(sizeY), m_nbThreads(nbThreads)
    {}

    /// Makes the images, touches all of their memory, and holds library and peer to the number of threads.
    void setUp();
    void tearDown();

    void runOperator() const { m_case.run(m_input, m_output); }
    void runPeer() const { m_peer(); }
    bool hasPeer() const;
    const FlowWork& getWork() const { return *m_work; }

private:
    ImagePtr makeImage(const image::eImageBufferType& type) const;

    PixelwiseCase m_case;
    unsigned long m_sizeX;
    unsigned long m_sizeY;
    unsigned long m_nbThreads;
    ImagePtr m_input; ///< null for an operator without input
    ImagePtr m_output;
    PeerPass m_peer;
    std::optional<FlowWork> m_work;
};

} // namespace orlix::bench
