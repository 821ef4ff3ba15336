// The bytes of an operator's images, shared out to threads for a bare loop.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "support/FlowLoops.h"

#include <tbb/parallel_for.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orlix::bench {

/// Every thread gets the same number of pixels, one after another as they lie in memory. Work of less than 256 KiB read
/// and written stays on the calling thread, which is done before another has woken.
class FlowWork
{
public:
    /// What is read, null where nothing is, and what is written, null where nothing is. Both of the same sizes, their
    /// plans of a multiple of 4096 pixels; they must outlive this object.
    FlowWork(const image::BaseImage* source, image::BaseImage* destination, unsigned long nbThreads);

    unsigned long getBytesRead() const { return m_nbPixels * m_bytesRead; }
    unsigned long getBytesWritten() const { return m_nbPixels * m_bytesWritten; }
    /// The loops of these images' ratio.
    const FlowLoops& getLoops() const { return selectFlowLoops(m_bytesRead, m_bytesWritten); }

    void run(FlowLoop loop) const;
    /// Calls `move(source, destination, bytes read, bytes written)` for every stretch, in each thread its own.
    template <class TMove>
    void forEachStretch(const TMove& move) const;
    /// The same with a block of `getBytesWritten()` bytes, plans one after another, in the destination's place.
    template <class TMove>
    void forEachStretchInto(std::byte* block, const TMove& move) const;

private:
    struct Stretch
    {
        const std::byte* source;
        std::byte* destination;
        unsigned long first; ///< of all pixels, plans one after another
        unsigned long nbPixels;
    };

    template <class TUse>
    void forEach(const TUse& use) const;

    unsigned long m_nbPixels = 0;
    unsigned long m_bytesRead = 0; ///< a pixel
    unsigned long m_bytesWritten = 0;
    std::vector<std::vector<Stretch>> m_shares; ///< one a thread
};

template <class TUse>
void FlowWork::forEach(const TUse& use) const
{
    const auto runShare = [&](std::size_t share) {
        std::for_each(m_shares[share].begin(), m_shares[share].end(), use);
    };
    if (m_shares.size() == 1) {
        runShare(0);
    } else {
        tbb::parallel_for(std::size_t{0}, m_shares.size(), runShare, tbb::static_partitioner());
    }
}

template <class TMove>
void FlowWork::forEachStretch(const TMove& move) const
{
    forEach([&](const Stretch& stretch) {
        move(stretch.source, stretch.destination, stretch.nbPixels * m_bytesRead, stretch.nbPixels * m_bytesWritten);
    });
}

template <class TMove>
void FlowWork::forEachStretchInto(std::byte* block, const TMove& move) const
{
    forEach([&](const Stretch& stretch) {
        move(stretch.source, block + stretch.first * m_bytesWritten, stretch.nbPixels * m_bytesRead,
             stretch.nbPixels * m_bytesWritten);
    });
}

} // namespace orlix::bench
