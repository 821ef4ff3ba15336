#include "ORLIXIPL/ORLIXImageProcessing/Parser/YStrip2dParsers.h"

namespace orlix::imaproc {

namespace {

BlockRows rowsOf(const image::BaseImageYStrip2d& strip, unsigned long nbRows)
{
    return {strip.getSizeX(),     nbRows, 1, image::elementSize(strip.getImageBufferType()), strip.getPixelStride(),
            strip.getLineBytes(), 0};
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
    this->m_bCopied = needsScratch();
    this->m_block = this->m_bCopied ? m_scratch.fill(first, rowsOf(strip, strip.getStripSizeY())) : first;
    info = {strip.getSizeX() * strip.getStripSizeY(), 1, 0, 0};
}

template <class TAttribute>
void BaseRawYStrip2dParser<TAttribute>::endBlock()
{
    if constexpr (TAttribute::g_bOutput) {
        if (this->m_bCopied) {
            m_scratch.writeBack();
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
    std::byte* const first = this->toBlock(strip.accessBuffer()) + static_cast<long>(block) * strip.getLineBytes();
    this->m_bCopied = strip.getPixelStride() != 1;
    this->m_block =
        this->m_bCopied ? m_scratch.fill(first, rowsOf(strip, m_bJoined ? strip.getStripSizeY() : 1)) : first;
    info = m_bJoined ? processor::ProcessingInfo{strip.getSizeX() * strip.getStripSizeY(), 1, 0, 0}
                     : processor::ProcessingInfo{strip.getSizeX(), strip.getStripSizeY(), block, 0};
}

template <class TAttribute>
void BaseLineYStrip2dParser<TAttribute>::endBlock()
{
    if constexpr (TAttribute::g_bOutput) {
        if (this->m_bCopied) {
            m_scratch.writeBack();
        }
    }
}

template class BaseRawYStrip2dParser<BaseInputYStrip2dAttribute>;
template class BaseRawYStrip2dParser<BaseOutputYStrip2dAttribute>;
template class BaseLineYStrip2dParser<BaseInputYStrip2dAttribute>;
template class BaseLineYStrip2dParser<BaseOutputYStrip2dAttribute>;

} // namespace orlix::imaproc
