#include "pixelwise/PixelwiseFixture.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <cstring>

namespace orlix::bench {

namespace {

/// Values from 0 to 126, which every type holds, so that no conversion leaves its range.
void fillPattern(image::BaseImage& image)
{
    image::visitStorageType(image.getBufferType(), [&]<class T>() {
        T* const pixels = image::planData<T>(image, 0, 0, 0);
        const unsigned long nbPixels = image.getSizeX() * image.getSizeY();
        for (unsigned long i = 0; i < nbPixels; ++i) {
            pixels[i] = static_cast<T>((i * 37 + i / 4096) % 127);
        }
    });
}

} // namespace

ImagePtr PixelwiseFixture::makeImage(const image::eImageBufferType& type) const
{
    const ImagePtr image = image::createImage(*image::geometry2d(type, m_sizeX, m_sizeY));
    fillPattern(*image);
    return image;
}

void PixelwiseFixture::setUp()
{
    core::setNbThreads(m_nbThreads == core::getNbUsableThreads() ? 0 : m_nbThreads);
    setOpenCvThreads(m_nbThreads);
    m_input = m_case.getBytesRead() > 0 ? makeImage(m_case.inType) : nullptr;
    m_output = makeImage(m_case.outType);
    m_peer = m_case.makePeer(m_input.get(), *m_output);
    m_work.emplace(m_input.get(), m_output.get(), m_nbThreads);
}

bool PixelwiseFixture::hasPeer() const
{
    const ImagePtr in =
        m_case.getBytesRead() > 0 ? image::createImage(*image::geometry2d(m_case.inType, 1, 1)) : nullptr;
    const ImagePtr out = image::createImage(*image::geometry2d(m_case.outType, 1, 1));
    return static_cast<bool>(m_case.makePeer(in.get(), *out));
}

void PixelwiseFixture::tearDown()
{
    m_work.reset();
    m_peer = {};
    m_output.reset();
    m_input.reset();
    core::setNbThreads(0);
    image::releasePooledMemory();
}

} // namespace orlix::bench
