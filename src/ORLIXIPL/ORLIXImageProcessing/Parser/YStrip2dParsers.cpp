#include "ORLIXIPL/ORLIXImageProcessing/Parser/YStrip2dParsers.h"

namespace orlix::imaproc {

namespace {

BlockRows rowsOf(const image::BaseImageYStrip2d& strip)
{
    const unsigned long rowBytes = strip.getSizeX() * image::elementSize(strip.getImageBufferType());
    return {strip.getStripSizeY(), rowBytes, strip.getLineBytes()};
}

} // namespace

template <class TAttribute>
bool BaseRawYStrip2dParser<TAttribute>::needsScratch() const
{
    const image::BaseImageYStrip2d& strip = *this->m_strip;
    const bool bWholeBlocks = strip.getSizeX() * strip.getStripSizeY() % g_kernelOverrun == 0;
    return !strip.isDense() || (!strip.hasRoomBehind() && !bWholeBlocks);
}

template <class TAttribute>
unsigned long BaseRawYStrip2dParser<TAttribute>::getNbBlocks() const
{
    return this->m_strip->getSizeX() == 0 || this->m_strip->getStripSizeY() == 0 ? 0 : 1;
}

template <class TAttribute>
void BaseRawYStrip2dParser<TAttribute>::startBlock(unsigned long, processor::ProcessingInfo& info)
{
    const image::BaseImageYStrip2d& strip = *this->m_strip;
    std::byte* const first = this->toBlock(strip.accessBuffer());
    m_bScratch = needsScratch();
    this->m_block = m_bScratch ? m_scratch.fill(first, rowsOf(strip)) : first;
    info = {strip.getSizeX() * strip.getStripSizeY(), 1, 0, 0};
}

template <class TAttribute>
void BaseRawYStrip2dParser<TAttribute>::endBlock()
{
    if constexpr (TAttribute::g_bOutput) {
        if (m_bScratch) {
            m_scratch.writeBack(this->toBlock(this->m_strip->accessBuffer()), rowsOf(*this->m_strip));
        }
    }
}

template <class TAttribute>
unsigned long BaseLineYStrip2dParser<TAttribute>::getNbBlocks() const
{
    const unsigned long nbLines = this->m_strip->getSizeX() == 0 ? 0 : this->m_strip->getStripSizeY();
    return m_bJoined && nbLines > 0 ? 1 : nbLines;
}

template <class TAttribute>
void BaseLineYStrip2dParser<TAttribute>::startBlock(unsigned long block, processor::ProcessingInfo& info)
{
    const image::BaseImageYStrip2d& strip = *this->m_strip;
    this->m_block = this->toBlock(strip.accessBuffer()) + block * strip.getLineBytes();
    info = m_bJoined ? processor::ProcessingInfo{strip.getSizeX() * strip.getStripSizeY(), 1, 0, 0}
                     : processor::ProcessingInfo{strip.getSizeX(), strip.getStripSizeY(), block, 0};
}

template class BaseRawYStrip2dParser<BaseInputYStrip2dAttribute>;
template class BaseRawYStrip2dParser<BaseOutputYStrip2dAttribute>;
template class BaseLineYStrip2dParser<BaseInputYStrip2dAttribute>;
template class BaseLineYStrip2dParser<BaseOutputYStrip2dAttribute>;

} // namespace orlix::imaproc
