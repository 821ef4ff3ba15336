#include "append/AppendFixture.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <stdexcept>

namespace orlix::bench {

using image::SubImageExtractor;

namespace {

void fillPlans(image::BaseImage& image, unsigned seed)
{
    const unsigned long rowBytes = image.getSizeX() * image::elementSize(image.getBufferType());
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
            for (unsigned long y = 0; y < image.getSizeY(); ++y) {
                std::memset(image.accessRow(y, z, 0, t), static_cast<int>((seed + t + z + y) % 127), rowBytes);
            }
        }
    }
}

bool isSamePlan(const image::BaseImage& one, unsigned long t, const image::BaseImage& other, unsigned long otherT)
{
    const unsigned long bytes = one.getSizeX() * one.getSizeY() * image::elementSize(one.getBufferType());
    return std::memcmp(one.accessRow(0, 0, 0, t), other.accessRow(0, 0, 0, otherT), bytes) == 0;
}

} // namespace

ImagePtr AppendFixture::makeImage(unsigned long sizeZ, unsigned long sizeT) const
{
    const ImagePtr image = image::createImage(*image::geometry5d(m_type, m_case.sizeX, m_case.sizeY, sizeZ, 1, sizeT));
    fillPlans(*image, static_cast<unsigned>(sizeT));
    return image;
}

void AppendFixture::setUp()
{
    core::setNbThreads(m_nbThreads == core::getNbUsableThreads() ? 0 : m_nbThreads);
    const unsigned long sizeT = m_case.sizeT;
    m_first = makeImage(1, sizeT);
    m_second = makeImage(1, sizeT);
    fillPlans(*m_second, 64);
    m_output = makeImage(1, 2 * sizeT);
    m_source = makeImage(2 * sizeT, 1);
    m_destination = makeImage(2 * sizeT, 1);
    m_work.emplace(m_source.get(), m_destination.get(), m_nbThreads);
    if (!SubImageExtractor::extractSubSequence(0, sizeT, *m_output, m_firstHalf) ||
        !SubImageExtractor::extractSubSequence(sizeT, sizeT, *m_output, m_secondHalf)) {
        throw std::runtime_error("a sequence can't be cut in half");
    }
    fillPlans(*m_output, 99);
    appendToGiven();
    for (unsigned long t = 0; t < sizeT; ++t) {
        if (!isSamePlan(*m_output, t, *m_first, t) || !isSamePlan(*m_output, sizeT + t, *m_second, t)) {
            throw std::runtime_error("appendSeqImg loses a plan; its speed means nothing");
        }
    }
}

void AppendFixture::tearDown()
{
    m_work.reset();
    for (ImagePtr* image : {&m_first, &m_second, &m_output, &m_firstHalf, &m_secondHalf, &m_source, &m_destination}) {
        image->reset();
    }
    core::setNbThreads(0);
    image::releasePooledMemory();
}

void AppendFixture::appendToGiven() const
{
    imaproc::util::appendSeqImg(m_first, m_second, m_output);
}

void AppendFixture::appendToNew() const
{
    benchmark::DoNotOptimize(imaproc::util::appendSeqImg(m_first, m_second));
}

void AppendFixture::appendInPlace() const
{
    const ImagePtr grown = image::createImage(*image::geometry5d(m_type, m_case.sizeX, m_case.sizeY, 1, 1, 0));
    imaproc::util::appendSeqImg(grown, m_first, grown);
    imaproc::util::appendSeqImg(grown, m_second, grown);
    benchmark::DoNotOptimize(grown.get());
}

void AppendFixture::copyHalves() const
{
    imaproc::util::copyImg(m_first, m_firstHalf);
    imaproc::util::copyImg(m_second, m_secondHalf);
}

} // namespace orlix::bench
