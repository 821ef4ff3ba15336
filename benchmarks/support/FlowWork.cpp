#include "support/FlowWork.h"

namespace orlix::bench {

namespace {

constexpr unsigned long g_sharedBytes = 256UL << 10;
constexpr unsigned long g_nbPixelsTogether = 4096;
constexpr unsigned long g_lineBytes = 64;

unsigned long elementBytes(const image::BaseImage* image)
{
    return image == nullptr ? 0 : image::elementSize(image->getBufferType());
}

} // namespace

FlowWork::FlowWork(const image::BaseImage* source, image::BaseImage* destination, unsigned long nbThreads)
    : m_bytesRead(elementBytes(source)), m_bytesWritten(elementBytes(destination))
{
    const image::BaseImageGeometry& geometry = (source != nullptr ? source : destination)->getGeometry();
    const unsigned long nbInPlan = geometry.getSizeX() * geometry.getSizeY();
    m_nbPixels = nbInPlan * geometry.getSizeZ();
    const unsigned long nbShares = getBytesRead() + getBytesWritten() < g_sharedBytes ? 1 : nbThreads;
    const unsigned long nbInShare = (m_nbPixels / g_nbPixelsTogether + nbShares - 1) / nbShares * g_nbPixelsTogether;
    m_shares.resize(nbShares);
    for (unsigned long first = 0; first < m_nbPixels;) {
        const unsigned long plan = first / nbInPlan;
        const unsigned long inPlan = first % nbInPlan;
        const unsigned long share = first / nbInShare;
        const unsigned long nbPixels = std::min(nbInPlan - inPlan, (share + 1) * nbInShare - first);
        m_shares[share].push_back(
            {source == nullptr ? nullptr : source->accessRow(0, plan, 0, 0) + inPlan * m_bytesRead,
             destination == nullptr ? nullptr : destination->accessRow(0, plan, 0, 0) + inPlan * m_bytesWritten, first,
             nbPixels});
        first += nbPixels;
    }
}

void FlowWork::run(FlowLoop loop) const
{
    const FlowRatio ratio = getLoops().ratio;
    const bool bReading = ratio.linesRead > 0;
    const unsigned long stepBytes = (bReading ? ratio.linesRead : ratio.linesWritten) * g_lineBytes;
    forEachStretch(
        [=](const std::byte* source, std::byte* destination, unsigned long bytesRead, unsigned long bytesWritten) {
            loop(source, destination, (bReading ? bytesRead : bytesWritten) / stepBytes);
        });
}

} // namespace orlix::bench
