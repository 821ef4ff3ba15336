// The images of one comparison of slices, which live while it runs.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "slice/SliceCase.h"

#include <cstddef>
#include <vector>

namespace orlix::bench {

class SliceFixture
{
public:
    SliceFixture(const SliceCase& work, unsigned long nbThreads) : m_case(work), m_nbThreads(nbThreads) {}

    /// Makes volume and slice, touches all of their memory, holds the library to the number of threads, and checks that
    /// operator and loops do the same.
    void setUp();
    void tearDown();

    // Each pass takes the next of a few slices that lie apart, so that along x no pass finds its lines in a cache that
    // the one before has filled.

    void runOperator();
    /// A bare loop over the same pixels: rows by `memcpy`, along x element by element, each thread its plans.
    void runLoop() { run(true, m_nbThreads); }
    /// As arrays with strides are copied: one thread, element by element, the distances known at run time alone.
    void runStrided() { run(false, 1); }

private:
    unsigned long nextIndex();
    void run(bool bRows, unsigned long nbThreads);
    void move(bool bRows, unsigned long index, unsigned long firstLine, unsigned long endLine) const;
    std::vector<std::byte> sliceAfter(void (SliceFixture::*pass)());
    void check();

    SliceCase m_case;
    unsigned long m_nbThreads;
    unsigned long m_pass = 0;
    ImagePtr m_volume;
    ImagePtr m_slice;
};

} // namespace orlix::bench
