// Parsers of strips of volumes: the whole strip as one flat block, or line by line.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Parser/BaseStripParser.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"
#include "ORLIXIPL/ORLIXImageProcessing/ZStripAttributes.h"

namespace orlix::imaproc {

/// The whole strip is one block of elements that follow one another, plan after plan, with room behind for a kernel
/// without a tail. That is the image's own memory where rows and plans touch and there is room; elsewhere, as in every
/// image that owns several plans, the block is a scratch copy, written back after the kernel.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseRawZStrip3dParser : public BaseStripParser<TAttribute>
{
public:
    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override;

private:
    bool needsScratch() const;

    ScratchBlock m_scratch;
};

/// Each line is one block, counted through the whole strip: line `y` of its plan `z` is the current line
/// `z * getSizeY() + y`. Joined, each plan is one long line. Kernels of this mode stay within their block. Where pixels
/// don't lie side by side, it is a scratch copy, written back after the kernel.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseLineZStrip3dParser : public BaseStripParser<TAttribute>
{
public:
    /// Does every line of a plan start where the one before ends? They do in the copy of pixels that don't lie side by
    /// side.
    bool doLinesTouch() const { return this->m_strip->isDense() || this->m_strip->getPixelStride() != 1; }
    /// Whether to hand out each plan as one line; only for lines that touch. Holds until the next call.
    void joinLines(bool bJoined) { m_bJoined = bJoined; }

    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override;

private:
    bool m_bJoined = false;
    ScratchBlock m_scratch;
};

extern template class BaseRawZStrip3dParser<BaseInputZStrip3dAttribute>;
extern template class BaseRawZStrip3dParser<BaseOutputZStrip3dAttribute>;
extern template class BaseRawZStrip3dParser<BaseInOutZStrip3dAttribute>;
extern template class BaseLineZStrip3dParser<BaseInputZStrip3dAttribute>;
extern template class BaseLineZStrip3dParser<BaseOutputZStrip3dAttribute>;
extern template class BaseLineZStrip3dParser<BaseInOutZStrip3dAttribute>;

/// `T` is the storage type of the strip's elements.
template <class T, class TAttribute>
class ORLIXIMAGEPROCESSING_API RawZStrip3dParser final : public BaseRawZStrip3dParser<TAttribute>
{};
template <class T, class TAttribute>
class ORLIXIMAGEPROCESSING_API LineZStrip3dParser final : public BaseLineZStrip3dParser<TAttribute>
{};

} // namespace orlix::imaproc
