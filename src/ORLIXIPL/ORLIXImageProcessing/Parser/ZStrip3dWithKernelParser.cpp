#include "ORLIXIPL/ORLIXImageProcessing/Parser/ZStrip3dWithKernelParser.h"

#include <new>

namespace orlix::imaproc {

template <class TAttribute>
BaseLineZStrip3dWithKernelParser<TAttribute>::BaseLineZStrip3dWithKernelParser() : m_border(image::mirorBorder3d())
{}

template <class TAttribute>
void BaseLineZStrip3dWithKernelParser<TAttribute>::init(typename Base::StripType& strip)
{
    Base::init(strip);
    m_bSideBySide = strip.getPixelStride() == 1;
    m_nbLines = nbPlacesOf({getStartingKernelSizeY(), getEndingKernelSizeY()});
    const unsigned long nbPlans = nbPlacesOf({getStartingKernelSizeZ(), getEndingKernelSizeZ()});
    unsigned long nbPlaces = 0;
    if (__builtin_mul_overflow(m_nbLines, nbPlans, &nbPlaces)) {
        throw std::bad_alloc();
    }
    m_lines.init(nbPlaces, strip.getSizeX(), strip.getPixelStride(), {getStartingKernelSizeX(), getEndingKernelSizeX()},
                 image::elementSize(strip.getImageBufferType()));
}

template <class TAttribute>
void BaseLineZStrip3dWithKernelParser<TAttribute>::setBorder3dPolicy(const image::Border3dPolicy& policy)
{
    m_border = policy;
    m_lines.forget();
}

template <class TAttribute>
unsigned long BaseLineZStrip3dWithKernelParser<TAttribute>::getNbBlocks() const
{
    return this->m_strip->getSizeX() == 0 ? 0 : this->m_strip->getStripSizeZ() * this->m_strip->getSizeY();
}

template <class TAttribute>
void BaseLineZStrip3dWithKernelParser<TAttribute>::startBlock(unsigned long block, processor::ProcessingInfo& info)
{
    const auto& strip = *this->m_strip;
    const unsigned long sizeY = strip.getSizeY();
    const unsigned long z = strip.getStripStartOffsetZ() + block / sizeY;
    if (z != m_z) {
        m_z = z;
        m_lines.forget(); // lines of places go by their number in the plan alone
    }
    m_y = block % sizeY;
    m_linePlace = m_y % m_nbLines;
    this->m_block = this->toBlock(
        m_bSideBySide ? strip.accessImageLine(m_y, m_z)
                      : accessRun(getStartingKernelSizeY(), getStartingKernelSizeZ(), getStartingKernelSizeX(), 0));
    info = {strip.getSizeX(), strip.getStripSizeZ() * sizeY, block, 0};
}

template <class TAttribute>
const void* BaseLineZStrip3dWithKernelParser<TAttribute>::accessRun(unsigned long line, unsigned long plan,
                                                                    unsigned long first, unsigned long count)
{
    const auto& strip = *this->m_strip;
    const unsigned long sizeX = strip.getSizeX();
    const unsigned long start = getStartingKernelSizeX();
    const unsigned long size = image::elementSize(strip.getImageBufferType());
    // Both wrap below 0, as border functions expect.
    const unsigned long y = m_border.y(m_y + line - getStartingKernelSizeY(), strip.getSizeY());
    const unsigned long z = m_border.z(m_z + plan - getStartingKernelSizeZ(), strip.getImageSizeZ());
    const auto* const row = static_cast<const std::byte*>(strip.accessImageLine(y, z));
    const bool bNoMargin = start == 0 && getEndingKernelSizeX() == 0;
    const bool bWithin = bNoMargin || (first >= start && first - start <= sizeX && count <= sizeX - (first - start));
    if (bWithin && m_bSideBySide) {
        return row + (first - start) * size;
    }
    const unsigned long linePlace =
        m_linePlace + line < m_nbLines ? m_linePlace + line : m_linePlace + line - m_nbLines;
    return m_lines.access(plan * m_nbLines + linePlace, m_y + line, row, m_border.x) + first * size;
}

template class BaseLineZStrip3dWithKernelParser<BaseInputZStrip3dWithKernelAttribute>;

} // namespace orlix::imaproc
