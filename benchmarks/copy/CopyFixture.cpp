#include "copy/CopyFixture.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <cstring>
#include <stdexcept>

namespace orlix::bench {

namespace {

unsigned long getPlanBytes(const CopyCase& copyCase)
{
    return getCopyBytes(copyCase) / 2 / copyCase.sizeZ;
}

void fillPattern(image::BaseImage& image, const CopyCase& copyCase)
{
    for (unsigned long z = 0; z < copyCase.sizeZ; ++z) {
        std::byte* const plan = image.accessRow(0, z, 0, 0);
        for (unsigned long i = 0; i < getPlanBytes(copyCase); ++i) {
            plan[i] = static_cast<std::byte>(i * 37 + i / 4096 + z);
        }
    }
}

void fillZero(image::BaseImage& image, const CopyCase& copyCase)
{
    for (unsigned long z = 0; z < copyCase.sizeZ; ++z) {
        std::memset(image.accessRow(0, z, 0, 0), 0, getPlanBytes(copyCase));
    }
}

} // namespace

void CopyFixture::setUp()
{
    core::setNbThreads(m_nbThreads == core::getNbUsableThreads() ? 0 : m_nbThreads);
    const ImagePtr input = image::createImage(*makeGeometry(m_case));
    fillPattern(*input, m_case);
    m_input = input;
    m_output = image::createImage(*makeGeometry(m_case));
    m_work.emplace(m_input.get(), m_output.get(), m_nbThreads);
    checkCopies();
}

void CopyFixture::tearDown()
{
    m_work.reset();
    m_output.reset();
    m_input.reset();
    core::setNbThreads(0);
    image::releasePooledMemory();
}

void CopyFixture::checkCopies() const
{
    fillZero(*m_output, m_case);
    imaproc::util::copyImg(m_input, m_output);
    checkOutput(*m_output, "copyImg");
    checkOutput(*imaproc::util::copyImg(m_input), "copyImg");
    const FlowLoops& loops = m_work->getLoops();
    for (const FlowLoop loop :
         {loops.ordinary, loops.ordinaryBlocks, loops.ordinaryAhead, loops.streaming, loops.streamingGroups}) {
        fillZero(*m_output, m_case);
        m_work->run(loop);
        checkOutput(*m_output, "a bare loop");
    }
}

void CopyFixture::checkOutput(const image::BaseImage& output, const char* maker) const
{
    for (unsigned long z = 0; z < m_case.sizeZ; ++z) {
        if (std::memcmp(output.accessRow(0, z, 0, 0), m_input->accessRow(0, z, 0, 0), getPlanBytes(m_case)) != 0) {
            throw std::runtime_error(std::string(maker) + " gives other pixels in plan " + std::to_string(z) + " of " +
                                     m_case.size + "; its speed means nothing");
        }
    }
}

} // namespace orlix::bench
