#include "compare/CompareFixture.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"
#include "peers/ArrayPasses.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <stdexcept>

namespace orlix::bench {

namespace {

ImagePtr makeImage(const image::eImageBufferType& type, unsigned long sizeX, unsigned long sizeY)
{
    const ImagePtr image = image::createImage(*image::geometry2d(type, sizeX, sizeY));
    image::visitStorageType(type, [&]<class T>() {
        T* const pixels = image::planData<T>(*image, 0, 0, 0);
        for (unsigned long i = 0; i < sizeX * sizeY; ++i) {
            pixels[i] = static_cast<T>((i * 37 + i / 4096) % 127);
        }
    });
    return image;
}

} // namespace

void CompareFixture::setUp()
{
    core::setNbThreads(m_nbThreads == core::getNbUsableThreads() ? 0 : m_nbThreads);
    setOpenCvThreads(m_nbThreads);
    m_tolerance = m_case.makeTolerance();
    m_first = makeImage(m_case.type, m_size.sizeX, m_size.sizeY);
    m_second = makeImage(m_case.type, m_size.sizeX, m_size.sizeY);
    m_peer = makePeer(*m_first, *m_second);
    m_arrays = makeArrays(*m_first, *m_second);
    m_firstWork.emplace(m_first.get(), nullptr, m_nbThreads);
    m_secondWork.emplace(m_second.get(), nullptr, m_nbThreads);
    m_bothWork.emplace(m_first.get(), m_second.get(), m_nbThreads);
    if (!imaproc::util::compareImg(m_first, m_second, m_tolerance)->identical) {
        throw std::runtime_error("compareImg finds a difference between equal images; its speed means nothing");
    }
}

void CompareFixture::tearDown()
{
    m_firstWork.reset();
    m_secondWork.reset();
    m_bothWork.reset();
    m_peer = {};
    m_arrays = {};
    m_first.reset();
    m_second.reset();
    core::setNbThreads(0);
    image::releasePooledMemory();
}

void CompareFixture::runOperator() const
{
    benchmark::DoNotOptimize(imaproc::util::compareImg(m_first, m_second, m_tolerance));
}

void CompareFixture::runLibrary() const
{
    m_bothWork->forEachStretch([](const std::byte* first, const std::byte* second, unsigned long bytes, unsigned long) {
        benchmark::DoNotOptimize(std::memcmp(first, second, bytes));
    });
}

void CompareFixture::runLoop(FlowLoop loop) const
{
    m_firstWork->run(loop);
    m_secondWork->run(loop);
}

PeerPass CompareFixture::makePeer(const image::BaseImage& first, const image::BaseImage& second) const
{
    return m_case.mode == eImgComparisonToleranceMode::eNoTolerance         ? makeOpenCvCount(first, second)
           : m_case.mode == eImgComparisonToleranceMode::eAbsoluteTolerance ? makeOpenCvNorm(first, second)
                                                                            : PeerPass();
}

bool CompareFixture::hasPeer() const
{
    return static_cast<bool>(makePeer(*makeSmall(), *makeSmall()));
}

PeerPass CompareFixture::makeArrays(const image::BaseImage& first, const image::BaseImage& second) const
{
    return m_case.mode == eImgComparisonToleranceMode::eNoTolerance ? makeArrayCount(first, second)
           : m_case.mode == eImgComparisonToleranceMode::eAbsoluteTolerance
               ? makeArrayCountBeyond(first, second, m_case.makeTolerance()->getRecord().absoluteTolerance)
               : PeerPass();
}

ImagePtr CompareFixture::makeSmall() const
{
    return image::createImage(*image::geometry2d(m_case.type, 1, 1));
}

} // namespace orlix::bench
