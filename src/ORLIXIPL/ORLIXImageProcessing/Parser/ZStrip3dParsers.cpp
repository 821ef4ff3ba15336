#include "ORLIXIPL/ORLIXImageProcessing/Parser/ZStrip3dParsers.h"

namespace orlix::imaproc {

namespace {

bool isEmpty(const image::BaseImageZStrip3d& strip)
{
    return strip.getSizeX() == 0 || strip.getSizeY() == 0 || strip.getStripSizeZ() == 0;
}

unsigned long nbElementsOf(const image::BaseImageZStrip3d& strip)
{
    return strip.getSizeX() * strip.getSizeY() * strip.getStripSizeZ();
}

} // namespace

template <class TAttribute>
BlockRows BaseRawZStrip3dParser<TAttribute>::getRows() const
{
    const image::BaseImageZStrip3d& strip = *this->m_strip;
    return {strip.getSizeY(), strip.getSizeX() * image::elementSize(strip.getImageBufferType()), strip.getLineBytes(),
            strip.getStripSizeZ(), strip.getBaseImage().getPixelLayout().planBytes};
}

template <class TAttribute>
bool BaseRawZStrip3dParser<TAttribute>::needsScratch() const
{
    const image::BaseImageZStrip3d& strip = *this->m_strip;
    const BlockRows rows = getRows();
    const bool bPlansTouch = rows.nbPlans == 1 || rows.planPitch == rows.nbRows * rows.rowBytes;
    const bool bWholeBlocks = nbElementsOf(strip) % g_kernelOverrun == 0;
    return !strip.isDense() || !bPlansTouch || (!strip.hasRoomBehind() && !bWholeBlocks);
}

template <class TAttribute>
unsigned long BaseRawZStrip3dParser<TAttribute>::getNbBlocks() const
{
    return isEmpty(*this->m_strip) ? 0 : 1;
}

template <class TAttribute>
void BaseRawZStrip3dParser<TAttribute>::startBlock(unsigned long, processor::ProcessingInfo& info)
{
    std::byte* const first = this->toBlock(this->m_strip->accessBuffer(0));
    m_bScratch = needsScratch();
    this->m_block = m_bScratch ? m_scratch.fill(first, getRows()) : first;
    info = {nbElementsOf(*this->m_strip), 1, 0, 0};
}

template <class TAttribute>
void BaseRawZStrip3dParser<TAttribute>::endBlock()
{
    if constexpr (TAttribute::g_bOutput) {
        if (m_bScratch) {
            m_scratch.writeBack(this->toBlock(this->m_strip->accessBuffer(0)), getRows());
        }
    }
}

template <class TAttribute>
unsigned long BaseLineZStrip3dParser<TAttribute>::getNbBlocks() const
{
    const image::BaseImageZStrip3d& strip = *this->m_strip;
    return isEmpty(strip) ? 0 : strip.getStripSizeZ() * (m_bJoined ? 1 : strip.getSizeY());
}

template <class TAttribute>
void BaseLineZStrip3dParser<TAttribute>::startBlock(unsigned long block, processor::ProcessingInfo& info)
{
    const image::BaseImageZStrip3d& strip = *this->m_strip;
    const unsigned long nbLines = m_bJoined ? 1 : strip.getSizeY(); // of a plan, as they are handed out
    const unsigned long nbElements = m_bJoined ? strip.getSizeX() * strip.getSizeY() : strip.getSizeX();
    this->m_block = this->toBlock(strip.accessBuffer(block / nbLines)) + block % nbLines * strip.getLineBytes();
    info = {nbElements, strip.getStripSizeZ() * nbLines, m_bJoined ? block * strip.getSizeY() : block, 0};
}

template class BaseRawZStrip3dParser<BaseInputZStrip3dAttribute>;
template class BaseRawZStrip3dParser<BaseOutputZStrip3dAttribute>;
template class BaseRawZStrip3dParser<BaseInOutZStrip3dAttribute>;
template class BaseLineZStrip3dParser<BaseInputZStrip3dAttribute>;
template class BaseLineZStrip3dParser<BaseOutputZStrip3dAttribute>;
template class BaseLineZStrip3dParser<BaseInOutZStrip3dAttribute>;

} // namespace orlix::imaproc
