#include "slice/SliceFixture.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <tbb/parallel_for.h>

#include <cstring>
#include <stdexcept>
#include <vector>

namespace orlix::bench {

namespace {

using imaproc::eAxis;

void fill(image::BaseImage& image)
{
    image::visitStorageType(image.getBufferType(), [&]<class T>() {
        for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
            T* const pixels = image::planData<T>(image, z, 0, 0);
            for (unsigned long i = 0; i < image.getSizeX() * image.getSizeY(); ++i) {
                pixels[i] = static_cast<T>((i * 37 + i / 4096 + z * 11) % 127);
            }
        }
    });
}

std::vector<std::byte> bytesOf(const image::BaseImage& plan)
{
    const std::byte* const first = plan.accessRow(0, 0, 0, 0);
    return {first, first + plan.getSizeX() * plan.getSizeY() * image::elementSize(plan.getBufferType())};
}

/// Elements `distance` bytes apart in the volume, and side by side in the slice.
template <class T, bool bPut>
void moveElements(std::byte* slice, std::byte* volume, unsigned long distance, unsigned long nbElements)
{
    for (unsigned long i = 0; i < nbElements; ++i) {
        std::byte* const element = volume + i * distance;
        std::memcpy(bPut ? element : slice + i * sizeof(T), bPut ? slice + i * sizeof(T) : element, sizeof(T));
    }
}

} // namespace

void SliceFixture::setUp()
{
    core::setNbThreads(m_nbThreads == core::getNbUsableThreads() ? 0 : m_nbThreads);
    const SliceVolume& sizes = m_case.volume;
    m_volume = image::createImage(*image::geometry3d(m_case.type, sizes.sizeX, sizes.sizeY, sizes.sizeZ));
    m_slice = image::createImage(*image::geometry2d(m_case.type, m_case.getSizeX(), m_case.getSizeY()));
    fill(*m_volume);
    fill(*m_slice);

    check();
}

void SliceFixture::tearDown()
{
    m_volume.reset();
    m_slice.reset();
    core::setNbThreads(0);
    image::releasePooledMemory();
}

unsigned long SliceFixture::nextIndex()
{
    constexpr unsigned long nbApart = 7; // slices of one cache line are apart where elements have 4 bytes, too
    const unsigned long step = m_case.countSlices() / nbApart;
    return m_pass++ % nbApart * step;
}

void SliceFixture::runOperator()
{
    const unsigned long index = nextIndex();
    if (m_case.bPut) {
        imaproc::util::putSlice3dImg(m_volume, m_slice, m_case.axis, index, m_volume);
    } else {
        imaproc::util::getSlice3dImg(m_volume, m_case.axis, index, m_slice);
    }
}

void SliceFixture::run(bool bRows, unsigned long nbThreads)
{
    const unsigned long index = nextIndex();
    const unsigned long nbLines = m_slice->getSizeY();
    // Work that one thread does in the time that another takes to wake stays on one.
    if (nbThreads == 1 || m_case.countBytes() < 256UL << 10) {
        move(bRows, index, 0, nbLines);
        return;
    }
    tbb::parallel_for(
        0UL, nbThreads,
        [&](unsigned long thread) {
            move(bRows, index, nbLines * thread / nbThreads, nbLines * (thread + 1) / nbThreads);
        },
        tbb::static_partitioner());
}

void SliceFixture::move(bool bRows, unsigned long index, unsigned long firstLine, unsigned long endLine) const
{
    const unsigned long pixelBytes = image::elementSize(m_case.type);
    const unsigned long nbElements = m_slice->getSizeX();
    const unsigned long rowBytes = m_volume->getPixelLayout().rowBytes;
    const unsigned long distance = m_case.axis == eAxis::eX ? rowBytes : pixelBytes;
    for (unsigned long v = firstLine; v < endLine; ++v) {
        std::byte* const slice = m_slice->accessRow(v, 0, 0, 0);
        std::byte* const volume = m_case.axis == eAxis::eX   ? m_volume->accessRow(0, v, 0, 0) + index * pixelBytes
                                  : m_case.axis == eAxis::eY ? m_volume->accessRow(index, v, 0, 0)
                                                             : m_volume->accessRow(v, index, 0, 0);
        if (bRows && m_case.axis != eAxis::eX) {
            std::memcpy(m_case.bPut ? volume : slice, m_case.bPut ? slice : volume, nbElements * pixelBytes);
        } else {
            image::visitStorageType(m_case.type, [&]<class T>() {
                m_case.bPut ? moveElements<T, true>(slice, volume, distance, nbElements)
                            : moveElements<T, false>(slice, volume, distance, nbElements);
            });
        }
    }
}

std::vector<std::byte> SliceFixture::sliceAfter(void (SliceFixture::*pass)())
{
    fill(m_case.bPut ? *m_volume : *m_slice); // what the pass before has left
    constexpr unsigned long chosen = 3;
    m_pass = chosen;
    (this->*pass)();
    if (!m_case.bPut) {
        return bytesOf(*m_slice);
    }
    SliceFixture reader(*this);
    reader.m_case.bPut = false;
    reader.m_slice = image::createImage(m_slice->getGeometry());
    reader.m_pass = chosen;
    reader.move(false, reader.nextIndex(), 0, m_slice->getSizeY());
    return bytesOf(*reader.m_slice);
}

void SliceFixture::check()
{
    const std::vector<std::byte> byOperator = sliceAfter(&SliceFixture::runOperator);
    if (byOperator != sliceAfter(&SliceFixture::runLoop) || byOperator != sliceAfter(&SliceFixture::runStrided)) {
        throw std::runtime_error("operator and loops give different slices; their speed means nothing");
    }
}

} // namespace orlix::bench
