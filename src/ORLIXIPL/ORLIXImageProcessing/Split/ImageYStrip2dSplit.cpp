#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYStrip2dSplit.h"

#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"

#include <algorithm>
#include <bit>

namespace orlix::imaproc {

template <class TImage>
ProcessingResult<bool> BaseImageStripSplit<TImage>::initImage(const boost::shared_ptr<TImage>& image)
{
    if (!image) {
        return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(eImageSplitMessage::eNullImage));
    }
    if (image->getSizeZ() != 1 || image->getSizeC() != 1 || image->getSizeT() != 1) {
        return ProcessingResult<bool>::failure(
            formatMessage<eImageSplitMessage>(eImageSplitMessage::eSeveralPlans, image->getGeometry().toString()));
    }
    m_image = image.get();
    return true;
}

template <class TImage>
processor::RangeDemand BaseImageStripSplit<TImage>::getRangeDemand() const
{
    const unsigned long sizeX = m_image->getSizeX();
    if (sizeX == 0) {
        return {true, 0, 0, 1};
    }
    // Where rows touch, whole blocks of the widest kernel keep what it writes past its count out of the next strip.
    // The overrun is a power of two, so its part that the line lacks is found in the line's trailing zero bits.
    const unsigned long multiple =
        m_image->getPixelLayout().bDense ? g_kernelOverrun >> std::min(std::countr_zero(g_kernelOverrun), std::countr_zero(sizeX)) : 1;
    return {true, m_image->getSizeY(), sizeX * image::elementSize(m_image->getBufferType()), multiple};
}

template class BaseImageStripSplit<image::BaseImage>;
template class BaseImageStripSplit<const image::BaseImage>;

} // namespace orlix::imaproc
