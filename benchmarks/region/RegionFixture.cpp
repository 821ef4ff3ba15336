#include "region/RegionFixture.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <tbb/parallel_for.h>

#include <cstring>

namespace orlix::bench {

namespace {

ImagePtr makeTouched(const image::eImageBufferType& type, unsigned long sizeX, unsigned long sizeY)
{
    const ImagePtr image = image::createImage(*image::geometry2d(type, sizeX, sizeY));
    for (unsigned long y = 0; y < sizeY; ++y) {
        std::memset(image->accessRow(y, 0, 0, 0), static_cast<int>(y % 251), sizeX * image::elementSize(type));
    }
    return image;
}

} // namespace

void RegionFixture::setUp()
{
    const RegionSize& size = m_case.size;
    core::setNbThreads(m_nbThreads == core::getNbUsableThreads() ? 0 : m_nbThreads);
    setOpenCvThreads(m_nbThreads);
    // Not on any boundary, as regions are.
    m_x = (size.imageX - size.sizeX) / 2 + 3;
    m_y = (size.imageY - size.sizeY) / 2;
    m_image = makeTouched(m_case.type, size.imageX, size.imageY);
    m_region = makeTouched(m_case.type, size.sizeX, size.sizeY);
    m_dense = makeTouched(m_case.type, size.sizeX, size.sizeY);
    m_peer = m_case.work == RegionWork::get ? makeOpenCvCrop(*m_image, m_x, m_y, *m_region)
                                            : makeOpenCvPaste(*m_region, *m_image, m_x, m_y);
    m_flow.emplace(m_region.get(), m_dense.get(), m_nbThreads);
}

void RegionFixture::runOperator() const
{
    if (m_case.work == RegionWork::get) {
        imaproc::util::getROI2dImg(m_image, m_x, m_y, m_case.size.sizeX, m_case.size.sizeY, m_region);
    } else {
        imaproc::util::putROI2dImg(m_image, m_region, m_x, m_y);
    }
}

void RegionFixture::copyRows() const
{
    const unsigned long element = image::elementSize(m_case.type);
    const unsigned long nbBytes = m_case.size.sizeX * element;
    const unsigned long nbRows = m_case.size.sizeY;
    const auto copyShare = [&](unsigned long thread) {
        for (unsigned long y = nbRows * thread / m_nbThreads; y < nbRows * (thread + 1) / m_nbThreads; ++y) {
            std::byte* const inImage = m_image->accessRow(m_y + y, 0, 0, 0) + m_x * element;
            std::byte* const inRegion = m_region->accessRow(y, 0, 0, 0);
            if (m_case.work == RegionWork::get) {
                std::memcpy(inRegion, inImage, nbBytes);
            } else {
                std::memcpy(inImage, inRegion, nbBytes);
            }
        }
    };
    if (m_nbThreads == 1) {
        copyShare(0);
    } else {
        tbb::parallel_for(0UL, m_nbThreads, copyShare, tbb::static_partitioner());
    }
}

void RegionFixture::tearDown()
{
    m_flow.reset();
    m_peer = {};
    m_dense.reset();
    m_region.reset();
    m_image.reset();
    core::setNbThreads(0);
    image::releasePooledMemory();
}

} // namespace orlix::bench
