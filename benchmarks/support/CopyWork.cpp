#include "support/CopyWork.h"

#include <tbb/parallel_for.h>

#include <algorithm>

namespace orlix::bench {

namespace {

constexpr unsigned long g_sharedBytes = 256UL << 10;

} // namespace

CopyWork::CopyWork(const image::BaseImage& source, image::BaseImage& destination, unsigned long nbThreads)
{
    const image::BaseImageGeometry& geometry = source.getGeometry();
    const unsigned long planBytes =
        geometry.getSizeX() * geometry.getSizeY() * image::elementSize(geometry.getBufferType());
    const unsigned long allBytes = planBytes * geometry.getSizeZ();
    m_bytes = 2 * allBytes;
    const unsigned long nbShares = m_bytes < g_sharedBytes ? 1 : nbThreads;
    const unsigned long shareBytes = (allBytes / g_copyLoopStep + nbShares - 1) / nbShares * g_copyLoopStep;
    m_shares.resize(nbShares);
    for (unsigned long offset = 0; offset < allBytes;) {
        const unsigned long plan = offset / planBytes;
        const unsigned long inPlan = offset % planBytes;
        const unsigned long share = offset / shareBytes;
        const unsigned long bytes = std::min(planBytes - inPlan, (share + 1) * shareBytes - offset);
        m_shares[share].push_back(
            {source.accessRow(0, plan, 0, 0) + inPlan, destination.accessRow(0, plan, 0, 0) + inPlan, offset, bytes});
        offset += bytes;
    }
}

template <class TCopy>
void CopyWork::forEachPiece(const TCopy& copy) const
{
    const auto runShare = [&](std::size_t share) {
        std::for_each(m_shares[share].begin(), m_shares[share].end(), copy);
    };
    if (m_shares.size() == 1) {
        runShare(0);
    } else {
        tbb::parallel_for(std::size_t{0}, m_shares.size(), runShare, tbb::static_partitioner());
    }
}

void CopyWork::run(CopyLoop loop) const
{
    forEachPiece([loop](const Piece& piece) { loop(piece.source, piece.destination, piece.bytes); });
}

void CopyWork::runInto(CopyLoop loop, std::byte* block) const
{
    forEachPiece([loop, block](const Piece& piece) { loop(piece.source, block + piece.offset, piece.bytes); });
}

} // namespace orlix::bench
