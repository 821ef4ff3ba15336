// The parser of strips of volumes with margins: line by line, with the lines around the current one.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/MarginStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/BaseStripParser.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/MarginLines.h"

namespace orlix::imaproc {

/// Each line of the strip is one block, counted through the whole strip: line `y` of its plan `z` is the current line
/// `z * getSizeY() + y`. `accessBuffer()` is its first element. Kernels read, and stay within the neighbourhood:
/// `getStartingKernelSizeZ() + 1 + getEndingKernelSizeZ()` plans of
/// `getStartingKernelSizeY() + 1 + getEndingKernelSizeY()` lines, each of
/// `getStartingKernelSizeX() + getSizeX() + getEndingKernelSizeX()` elements.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseLineZStrip3dWithKernelParser : public BaseStripParser<TAttribute>
{
public:
    using Base = BaseStripParser<TAttribute>;

    BaseLineZStrip3dWithKernelParser();

    /// Binds to a strip, which must outlive the binding. Throws std::bad_alloc for margins beyond memory.
    void init(typename Base::StripType& strip);
    void init(const boost::shared_ptr<typename Base::StripType>& strip) { init(*strip); }
    /// What stands for voxels beyond the border, from the next line on; the mirror at first. Holds until the next call.
    void setBorder3dPolicy(const image::Border3dPolicy& policy);

    unsigned long getStartingKernelSizeX() const { return this->m_strip->getStartingKernelSizeX(); }
    unsigned long getEndingKernelSizeX() const { return this->m_strip->getEndingKernelSizeX(); }
    unsigned long getStartingKernelSizeY() const { return this->m_strip->getStartingKernelSizeY(); }
    unsigned long getEndingKernelSizeY() const { return this->m_strip->getEndingKernelSizeY(); }
    unsigned long getStartingKernelSizeZ() const { return this->m_strip->getStartingKernelSizeZ(); }
    unsigned long getEndingKernelSizeZ() const { return this->m_strip->getEndingKernelSizeZ(); }

    using Base::accessBuffer;
    /// First element of line `line` of neighbouring plan `plan`: the image's own where there is no margin along it
    /// and its pixels lie side by side, else a copy. Valid until the next block.
    const void* accessBuffer(unsigned long line, unsigned long plan) { return accessRun(line, plan, 0, ~0UL); }
    /// The same line, of which the kernel reads no more than elements [first, first + count): the image's own where
    /// these lie within it, side by side, else a copy. Gives element `first`.
    const void* accessRun(unsigned long line, unsigned long plan, unsigned long first, unsigned long count);

    /// Lines with margins are handed out one by one.
    bool doLinesTouch() const { return false; }
    void joinLines(bool) {}

    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override {}

private:
    image::Border3dPolicy m_border;
    MarginLines m_lines;
    bool m_bSideBySide = true;     ///< do pixels of a line lie one behind the other?
    unsigned long m_nbLines = 1;   ///< of a plan of the neighbourhood
    unsigned long m_y = 0;         ///< the current line in its plan
    unsigned long m_z = 0;         ///< the current plan in the volume
    unsigned long m_linePlace = 0; ///< of neighbouring line 0 among the places of each plan
};

extern template class BaseLineZStrip3dWithKernelParser<BaseInputZStrip3dWithKernelAttribute>;

/// `T` is the storage type of the strip's elements.
template <class T, class TAttribute>
class ORLIXIMAGEPROCESSING_API LineZStrip3dWithKernelParser final : public BaseLineZStrip3dWithKernelParser<TAttribute>
{};

} // namespace orlix::imaproc
