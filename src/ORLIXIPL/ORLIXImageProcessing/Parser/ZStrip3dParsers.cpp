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

BlockRows rowsOf(const image::BaseImageZStrip3d& strip, unsigned long nbRows, unsigned long nbPlans)
{
    return {strip.getSizeX(),
            nbRows,
            nbPlans,
            image::elementSize(strip.getImageBufferType()),
            strip.getPixelStride(),
            strip.getLineBytes(),
            strip.getBaseImage().getPixelLayout().planBytes};
}

BlockRows rowsOf(const image::BaseImageZStrip3d& strip)
{
    return rowsOf(strip, strip.getSizeY(), strip.getStripSizeZ());
}

} // namespace

template <class TAttribute>
bool BaseRawZStrip3dParser<TAttribute>::needsScratch() const
{
    const image::BaseImageZStrip3d& strip = *this->m_strip;
    const BlockRows rows = rowsOf(strip);
    const bool bPlansTouch =
        rows.nbPlans == 1 || rows.planPitch == static_cast<long>(rows.nbRows * rows.nbPixels * rows.elementBytes);
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
    this->m_bCopied = needsScratch();
    this->m_block = this->m_bCopied ? m_scratch.fill(first, rowsOf(*this->m_strip)) : first;
    info = {nbElementsOf(*this->m_strip), 1, 0, 0};
}

template <class TAttribute>
void BaseRawZStrip3dParser<TAttribute>::endBlock()
{
    if constexpr (TAttribute::g_bOutput) {
        if (this->m_bCopied) {
            m_scratch.writeBack();
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
    std::byte* const first =
        this->toBlock(strip.accessBuffer(block / nbLines)) + static_cast<long>(block % nbLines) * strip.getLineBytes();
    this->m_bCopied = strip.getPixelStride() != 1;
    this->m_block = this->m_bCopied ? m_scratch.fill(first, rowsOf(strip, m_bJoined ? strip.getSizeY() : 1, 1)) : first;
    info = {nbElements, strip.getStripSizeZ() * nbLines, m_bJoined ? block * strip.getSizeY() : block, 0};
}

template <class TAttribute>
void BaseLineZStrip3dParser<TAttribute>::endBlock()
{
    if constexpr (TAttribute::g_bOutput) {
        if (this->m_bCopied) {
            m_scratch.writeBack();
        }
    }
}

template class BaseRawZStrip3dParser<BaseInputZStrip3dAttribute>;
template class BaseRawZStrip3dParser<BaseOutputZStrip3dAttribute>;
template class BaseRawZStrip3dParser<BaseInOutZStrip3dAttribute>;
template class BaseLineZStrip3dParser<BaseInputZStrip3dAttribute>;
template class BaseLineZStrip3dParser<BaseOutputZStrip3dAttribute>;
template class BaseLineZStrip3dParser<BaseInOutZStrip3dAttribute>;

} // namespace orlix::imaproc
