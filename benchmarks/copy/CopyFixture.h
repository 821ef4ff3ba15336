// The images of one comparison, which live while it runs.
#pragma once

#include "copy/CopyCases.h"
#include "support/FlowWork.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <optional>

namespace orlix::bench {

class CopyFixture
{
public:
    CopyFixture(const CopyCase& copyCase, unsigned long nbThreads) : m_case(copyCase), m_nbThreads(nbThreads) {}

    /// Makes the images, touches all of their memory, holds the library to the number of threads, and checks that all
    /// that is to be measured copies what it is given. Throws std::runtime_error where something does not.
    void setUp();
    void tearDown();

    const ImageConstPtr& getInput() const { return m_input; }
    const ImagePtr& getOutput() const { return m_output; }
    const FlowWork& getWork() const { return *m_work; }

private:
    void checkCopies() const;
    void checkOutput(const image::BaseImage& output, const char* maker) const;

    CopyCase m_case;
    unsigned long m_nbThreads;
    ImageConstPtr m_input;
    ImagePtr m_output;
    std::optional<FlowWork> m_work;
};

} // namespace orlix::bench
