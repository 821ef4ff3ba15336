// What parsers of strips of all kinds have in common.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataParser.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"

namespace orlix::imaproc {

/// The strip that the parser is bound to, and the block that the kernel works on. `TAttribute` is the base class of the
/// attribute that carries the strip; the buffer is const where that is an input.
template <class TAttribute>
class BaseStripParser : public processor::BaseDataParser
{
public:
    using StripType = typename TAttribute::StripType;
    using BufferType = std::conditional_t<TAttribute::g_bOutput, void*, const void*>;

    /// Binds to a strip, which must outlive the binding.
    void init(StripType& strip) { m_strip = &strip; }
    void init(const boost::shared_ptr<StripType>& strip) { m_strip = strip.get(); }
    void clear() override { m_strip = nullptr, m_block = nullptr; }
    /// First element of the kernel's current block.
    BufferType accessBuffer() const { return m_block; }
    const StripType& getStrip() const { return *m_strip; }
    /// Is the current block a copy, which is read again once the kernel has written it?
    bool isCopied() const { return m_bCopied; }

protected:
    StripType* m_strip = nullptr;
    std::byte* m_block = nullptr;
    bool m_bCopied = false;

    /// Blocks of an input are const for kernels alone: one place holds both kinds.
    static std::byte* toBlock(const void* first) { return static_cast<std::byte*>(const_cast<void*>(first)); }
};

} // namespace orlix::imaproc
