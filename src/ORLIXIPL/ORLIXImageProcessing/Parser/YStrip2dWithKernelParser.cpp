#include "ORLIXIPL/ORLIXImageProcessing/Parser/YStrip2dWithKernelParser.h"

namespace orlix::imaproc {

template <class TAttribute>
BaseLineYStrip2dWithKernelParser<TAttribute>::BaseLineYStrip2dWithKernelParser() : m_border(image::mirorBorder2d())
{}

template <class TAttribute>
void BaseLineYStrip2dWithKernelParser<TAttribute>::init(typename Base::StripType& strip)
{
    Base::init(strip);
    m_bSideBySide = strip.getPixelStride() == 1;
    m_nbNeighbours = nbPlacesOf({getStartingKernelSizeY(), getEndingKernelSizeY()});
    m_lines.init(m_nbNeighbours, strip.getSizeX(), strip.getPixelStride(),
                 {getStartingKernelSizeX(), getEndingKernelSizeX()}, image::elementSize(strip.getImageBufferType()));
}

template <class TAttribute>
void BaseLineYStrip2dWithKernelParser<TAttribute>::setBorder2dPolicy(const image::Border2dPolicy& policy)
{
    m_border = policy;
    m_lines.forget();
}

template <class TAttribute>
unsigned long BaseLineYStrip2dWithKernelParser<TAttribute>::getNbBlocks() const
{
    return this->m_strip->getSizeX() == 0 ? 0 : this->m_strip->getStripSizeY();
}

template <class TAttribute>
void BaseLineYStrip2dWithKernelParser<TAttribute>::startBlock(unsigned long block, processor::ProcessingInfo& info)
{
    const auto& strip = *this->m_strip;
    m_y = strip.getStripStartOffsetY() + block;
    m_place = m_y % m_nbNeighbours;
    this->m_block = this->toBlock(m_bSideBySide ? strip.accessImageLine(m_y)
                                                : accessRun(getStartingKernelSizeY(), getStartingKernelSizeX(), 0));
    info = {strip.getSizeX(), strip.getStripSizeY(), block, 0};
}

template <class TAttribute>
const void* BaseLineYStrip2dWithKernelParser<TAttribute>::accessRun(unsigned long line, unsigned long first,
                                                                    unsigned long count)
{
    const auto& strip = *this->m_strip;
    const unsigned long sizeX = strip.getSizeX();
    const unsigned long start = getStartingKernelSizeX();
    const unsigned long size = image::elementSize(strip.getImageBufferType());
    const unsigned long position = m_y + line - getStartingKernelSizeY(); // wraps below 0, as border functions expect
    const auto* const row =
        static_cast<const std::byte*>(strip.accessImageLine(m_border.y(position, strip.getImageSizeY())));
    const bool bNoMargin = start == 0 && getEndingKernelSizeX() == 0;
    const bool bWithin = bNoMargin || (first >= start && first - start <= sizeX && count <= sizeX - (first - start));
    if (bWithin && m_bSideBySide) {
        return row + (first - start) * size;
    }
    const unsigned long place = m_place + line < m_nbNeighbours ? m_place + line : m_place + line - m_nbNeighbours;
    return m_lines.access(place, m_y + line, row, m_border.x) + first * size;
}

template class BaseLineYStrip2dWithKernelParser<BaseInputYStrip2dWithKernelAttribute>;

} // namespace orlix::imaproc
