// Parsers of strips of plans: the whole strip as one flat block, or line by line.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Parser/BaseStripParser.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"

namespace orlix::imaproc {

/// The whole strip is one block of elements that follow one another, with room behind for a kernel without a tail. In
/// an image whose pixels or rows do not touch, or that has no room, the block is a scratch copy, written back after the
/// kernel.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseRawYStrip2dParser : public BaseStripParser<TAttribute>
{
public:
    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override;

private:
    bool needsScratch() const;

    ScratchBlock m_scratch;
};

/// Each line is one block, or the whole strip is, as one long line. Kernels of this mode stay within their block. Where
/// pixels don't lie side by side, it is a scratch copy, written back after the kernel.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseLineYStrip2dParser : public BaseStripParser<TAttribute>
{
public:
    /// Does every line start where the one before ends? They do in the copy of pixels that don't lie side by side.
    bool doLinesTouch() const { return this->m_strip->isDense() || this->m_strip->getPixelStride() != 1; }
    /// Whether to hand out the strip as one line; only for lines that touch. Holds until the next call.
    void joinLines(bool bJoined) { m_bJoined = bJoined; }

    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override;

private:
    bool m_bJoined = false;
    ScratchBlock m_scratch;
};

extern template class BaseRawYStrip2dParser<BaseInputYStrip2dAttribute>;
extern template class BaseRawYStrip2dParser<BaseOutputYStrip2dAttribute>;
extern template class BaseLineYStrip2dParser<BaseInputYStrip2dAttribute>;
extern template class BaseLineYStrip2dParser<BaseOutputYStrip2dAttribute>;

/// `T` is the storage type of the strip's elements.
template <class T, class TAttribute>
class ORLIXIMAGEPROCESSING_API RawYStrip2dParser final : public BaseRawYStrip2dParser<TAttribute>
{};
template <class T, class TAttribute>
class ORLIXIMAGEPROCESSING_API LineYStrip2dParser final : public BaseLineYStrip2dParser<TAttribute>
{};

} // namespace orlix::imaproc
