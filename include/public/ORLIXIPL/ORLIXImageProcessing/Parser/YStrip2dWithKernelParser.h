// The parser of strips of plans with margins: line by line, with the lines around the current one.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/MarginStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/BaseStripParser.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/MarginLines.h"

namespace orlix::imaproc {

/// Each line of the strip is one block; `accessBuffer()` is its first element. Kernels read, and stay within the
/// neighbourhood: `getStartingKernelSizeY() + 1 + getEndingKernelSizeY()` lines, each of
/// `getStartingKernelSizeX() + getSizeX() + getEndingKernelSizeX()` elements.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseLineYStrip2dWithKernelParser : public BaseStripParser<TAttribute>
{
public:
    using Base = BaseStripParser<TAttribute>;

    BaseLineYStrip2dWithKernelParser();

    /// Binds to a strip, which must outlive the binding. Throws std::bad_alloc for margins beyond memory.
    void init(typename Base::StripType& strip);
    void init(const boost::shared_ptr<typename Base::StripType>& strip) { init(*strip); }
    /// What stands for pixels beyond the border, from the next line on; the mirror at first. Holds until the next call.
    void setBorder2dPolicy(const image::Border2dPolicy& policy);

    unsigned long getStartingKernelSizeX() const { return this->m_strip->getStartingKernelSizeX(); }
    unsigned long getEndingKernelSizeX() const { return this->m_strip->getEndingKernelSizeX(); }
    unsigned long getStartingKernelSizeY() const { return this->m_strip->getStartingKernelSizeY(); }
    unsigned long getEndingKernelSizeY() const { return this->m_strip->getEndingKernelSizeY(); }

    using Base::accessBuffer;
    /// First element of neighbouring line `line`: the image's own where there is no margin along it and its pixels lie
    /// side by side, else a copy. Valid until the next block.
    const void* accessBuffer(unsigned long line) { return accessRun(line, 0, ~0UL); }
    /// The same line, of which the kernel reads no more than elements [first, first + count): the image's own where
    /// these lie within it, side by side, else a copy. Gives element `first`.
    const void* accessRun(unsigned long line, unsigned long first, unsigned long count);

    /// Lines with margins are handed out one by one.
    bool doLinesTouch() const { return false; }
    void joinLines(bool) {}

    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override {}

private:
    image::Border2dPolicy m_border;
    MarginLines m_lines;
    bool m_bSideBySide = true;        ///< do pixels of a line lie one behind the other?
    unsigned long m_nbNeighbours = 1; ///< lines of the neighbourhood
    unsigned long m_y = 0;            ///< the current line in the plan
    unsigned long m_place = 0;        ///< of neighbouring line 0 in `m_lines`
};

extern template class BaseLineYStrip2dWithKernelParser<BaseInputYStrip2dWithKernelAttribute>;

/// `T` is the storage type of the strip's elements.
template <class T, class TAttribute>
class ORLIXIMAGEPROCESSING_API LineYStrip2dWithKernelParser final : public BaseLineYStrip2dWithKernelParser<TAttribute>
{};

} // namespace orlix::imaproc
