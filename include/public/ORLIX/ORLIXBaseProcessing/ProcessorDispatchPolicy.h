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
    void initDefault() { m_stripBytes = 256UL << 10; }
    void initStripBytes(unsigned long stripBytes) { m_stripBytes = stripBytes; }

    void initName(const std::string& name) { m_name = name; }

    const std::string& getName() const { return m_name; } ///< whose policy it is; empty for nobody's
    unsigned long getStripBytes() const { return m_stripBytes; }

private:
    std::string m_name;
    unsigned long m_stripBytes = 256UL << 10;
};

} // namespace orlix::processor
