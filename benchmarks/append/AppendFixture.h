// The sequences of one comparison, which live while it runs.
#pragma once

#include "support/FlowWork.h"

#include <array>
#include <optional>
#include <string>

namespace orlix::bench {

/// Two sequences of `sizeT` plans each.
struct AppendCase
{
    const char* name;
    unsigned long sizeX, sizeY, sizeT;
    bool bAllThreads; ///< else one
};

/// One call's own costs; sequences in L2; in the last-level cache; beyond it, in few steps and in many.
inline constexpr std::array<AppendCase, 5> g_appendCases = {{{"64x64x1", 64, 64, 1, false},
                                                             {"512x512x1", 512, 512, 1, false},
                                                             {"2048x2048x1", 2048, 2048, 1, true},
                                                             {"4096x4096x4", 4096, 4096, 4, true},
                                                             {"512x512x256", 512, 512, 256, true}}};

class AppendFixture
{
public:
    AppendFixture(const AppendCase& work, const image::eImageBufferType& type, unsigned long nbThreads)
        : m_case(work), m_type(type), m_nbThreads(nbThreads)
    {}

    /// Makes the images, touches all of their memory, and sees that both sequences arrive in their order.
    void setUp();
    void tearDown();

    void appendToGiven() const;
    void appendToNew() const;
    /// A first sequence of no steps grows by both: all that the other forms move, into memory that is had anew.
    void appendInPlace() const;
    /// What a caller would do without the operator: a copy of each half.
    void copyHalves() const;
    const FlowWork& getWork() const { return *m_work; }

private:
    ImagePtr makeImage(unsigned long sizeZ, unsigned long sizeT) const;

    AppendCase m_case;
    image::eImageBufferType m_type;
    unsigned long m_nbThreads;
    ImagePtr m_first, m_second, m_output;
    ImagePtr m_firstHalf, m_secondHalf; ///< of the output
    ImagePtr m_source, m_destination;   ///< volumes of as many plans, for bare loops
    std::optional<FlowWork> m_work;
};

} // namespace orlix::bench
