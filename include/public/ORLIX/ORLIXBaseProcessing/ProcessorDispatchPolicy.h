// How a processor's work is cut for the level below.
#pragma once

#include <string>

namespace orlix::processor {

class ProcessorDispatchPolicy
{
public:
    /// Strips of about 256 KiB of the widest of their images: in and out fit the second-level cache together, and a
    /// plan of 512x512 bytes stays whole. The figure is fixed, so that the same geometry gives the same strips on
    /// every machine and on any number of threads.
    static constexpr unsigned long g_defaultStripBytes = 256UL << 10;
    void initDefault() { m_stripBytes = g_defaultStripBytes, m_weight = 1; }
    void initStripBytes(unsigned long stripBytes) { m_stripBytes = stripBytes; }

    /// What a strip moves or computes per byte that it holds, as a multiple of what a plain copy does; 0 counts as 1. A
    /// heavier class gets lower strips, and a second thread joins its work earlier. It belongs to the class, so strips
    /// follow from geometry and class alone.
    void initWeight(unsigned weight) { m_weight = weight == 0 ? 1 : weight; }

    void initName(const std::string& name) { m_name = name; }

    const std::string& getName() const { return m_name; } ///< whose policy it is; empty for nobody's
    unsigned long getStripBytes() const { return m_stripBytes; }
    unsigned getWeight() const { return m_weight; }

private:
    std::string m_name;
    unsigned long m_stripBytes = g_defaultStripBytes;
    unsigned m_weight = 1;
};

} // namespace orlix::processor
