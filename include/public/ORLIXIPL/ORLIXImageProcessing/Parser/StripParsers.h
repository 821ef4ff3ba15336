// Parsers of strips: the whole strip as one flat block, or line by line.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataParser.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"
#include "ORLIXIPL/ORLIXImageProcessing/StripAttributes.h"

namespace orlix::imaproc {

/// What both modes share: the strip that the parser is bound to, and the block that the kernel works on. The buffer is
/// const for an input strip.
template <class TAttribute>
class BaseYStrip2dParser : public processor::BaseDataParser
{
public:
    using StripType = typename TAttribute::StripType;
    using BufferType = std::conditional_t<TAttribute::g_bOutput, void*, const void*>;

    /// Binds to a strip, which must outlive the binding.
    void init(const boost::shared_ptr<StripType>& strip) { m_strip = strip.get(); }
    void clear() override { m_strip = nullptr, m_block = nullptr; }
    /// First element of the kernel's current block.
    BufferType accessBuffer() const { return m_block; }
    const StripType& getStrip() const { return *m_strip; }

protected:
    StripType* m_strip = nullptr;
    std::byte* m_block = nullptr;

    std::byte* firstElement() const
    {
        return static_cast<std::byte*>(const_cast<void*>(static_cast<const void*>(m_strip->accessBuffer())));
    }
};

/// The whole strip is one block of elements that follow one another, with room behind for a kernel without a tail. In
/// an image whose rows do not touch, or that has no room, the block is a scratch copy, written back after the kernel.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseRawYStrip2dParser : public BaseYStrip2dParser<TAttribute>
{
public:
    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override;

private:
    bool needsScratch() const;

    ScratchBlock m_scratch;
    bool m_bScratch = false;
};

/// Each line is one block, or the whole strip is, as one long line. Kernels of this mode stay within their block.
template <class TAttribute>
class ORLIXIMAGEPROCESSING_API BaseLineYStrip2dParser : public BaseYStrip2dParser<TAttribute>
{
public:
    /// Does every line start where the one before ends?
    bool doLinesTouch() const { return this->m_strip->isDense(); }
    /// Whether to hand out the strip as one line; only for lines that touch. Holds until the next call.
    void joinLines(bool bJoined) { m_bJoined = bJoined; }

    unsigned long getNbBlocks() const override;
    void startBlock(unsigned long block, processor::ProcessingInfo& info) override;
    void endBlock() override {}

private:
    bool m_bJoined = false;
};

extern template class BaseRawYStrip2dParser<BaseInputYStrip2dAttribute>;
extern template class BaseRawYStrip2dParser<BaseOutputYStrip2dAttribute>;
extern template class BaseLineYStrip2dParser<BaseInputYStrip2dAttribute>;
extern template class BaseLineYStrip2dParser<BaseOutputYStrip2dAttribute>;

/// `T` is the storage type of the strip's elements.
template <class T, class TAttribute>
class RawYStrip2dParser final : public BaseRawYStrip2dParser<TAttribute>
{};
template <class T, class TAttribute>
class LineYStrip2dParser final : public BaseLineYStrip2dParser<TAttribute>
{};

/// The whole strip at once.
struct RawStripParserMode
{
    static constexpr bool g_bJoinsLines = false;
    template <class TAttribute>
    using BaseParser = BaseRawYStrip2dParser<TAttribute>;
    template <class T, class TAttribute>
    using Parser = RawYStrip2dParser<T, TAttribute>;
};
/// Line by line.
struct LineStripParserMode
{
    static constexpr bool g_bJoinsLines = false;
    template <class TAttribute>
    using BaseParser = BaseLineYStrip2dParser<TAttribute>;
    template <class T, class TAttribute>
    using Parser = LineYStrip2dParser<T, TAttribute>;
};
/// Line by line, but as one long line where the lines touch in every strip: for kernels to which each element is one
/// by itself, so that short lines do not cost a call each.
struct JoinedLineStripParserMode : LineStripParserMode
{
    static constexpr bool g_bJoinsLines = true;
};

} // namespace orlix::imaproc
