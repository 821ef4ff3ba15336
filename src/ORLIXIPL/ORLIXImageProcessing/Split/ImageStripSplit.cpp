#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageStripSplit.h"

#include "ORLIXIPL/ORLIXImageProcessing/Level/StraightImages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"

#include <algorithm>
#include <bit>

namespace orlix::imaproc {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eImageSplitMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(id, args...));
}

/// A failure that names what has no pixels on the host; `split` knows the attribute.
ProcessingResult<bool> checkHost(const image::BaseImage& image, const processor::BaseDataSplit& split)
{
    if (image.getPixelLayout().first != nullptr) {
        return true;
    }
    return failure(eImageSplitMessage::eNotOnHost, split.getAttributeName(), image.getGeometry().toString());
}

ProcessingResult<bool> checkPlan(const image::BaseImage* image, const processor::BaseDataSplit& split)
{
    if (image == nullptr) {
        return failure(eImageSplitMessage::eNullImage);
    }
    if (image->getSizeZ() != 1 || image->getSizeC() != 1 || image->getSizeT() != 1) {
        return failure(eImageSplitMessage::eSeveralPlans, image->getGeometry().toString());
    }
    return checkHost(*image, split);
}

ProcessingResult<bool> checkVolume(const image::BaseImage* image, const processor::BaseDataSplit& split)
{
    if (image == nullptr) {
        return failure(eImageSplitMessage::eNullImage);
    }
    if (image->getSizeC() != 1 || image->getSizeT() != 1) {
        return failure(eImageSplitMessage::eSeveralVolumes, image->getGeometry().toString());
    }
    return checkHost(*image, split);
}

bool isWithin(unsigned long start, unsigned long size, unsigned long whole)
{
    return start <= whole && size <= whole - start;
}

} // namespace

template <class TImage>
ProcessingResult<bool> BaseImageStripSplit<TImage>::initPlan(const boost::shared_ptr<TImage>& image)
{
    ProcessingResult<bool> result = initSubPlan(image, 0, image ? image->getSizeY() : 0);
    const unsigned long sizeX = result ? image->getSizeX() : 0;
    if (sizeX != 0) {
        // Where rows touch, whole blocks of the widest kernel keep what it writes past its count out of the next strip.
        // Rows apart are cut alike: what a generator fills a strip with must not depend on the memory that it lies in.
        // The overrun is a power of two, so its part that the line lacks is found in the line's trailing zero bits.
        m_demand.lineMultiple = g_kernelOverrun >> std::min(std::countr_zero(g_kernelOverrun), std::countr_zero(sizeX));
    }
    return result;
}

template <class TImage>
ProcessingResult<bool> BaseImageStripSplit<TImage>::initSubPlan(const boost::shared_ptr<TImage>& image,
                                                                unsigned long start, unsigned long size,
                                                                unsigned long lineBytes)
{
    if (ProcessingResult<bool> result = checkPlan(image.get(), *this); !result) {
        return result;
    }
    if (!isWithin(start, size, image->getSizeY())) {
        return failure(eImageSplitMessage::eLinesOutside, size, start, image->getSizeY());
    }
    m_image = image;
    m_first = start;
    m_demand = {true, size, std::min(lineBytes, lineBytesOf(*image)), 1};
    return true;
}

template <class TImage>
ProcessingResult<bool> BaseImageStripSplit<TImage>::initVolume(const boost::shared_ptr<TImage>& image)
{
    return initSubVolume(image, 0, image ? image->getSizeZ() : 0);
}

template <class TImage>
ProcessingResult<bool> BaseImageStripSplit<TImage>::initSubVolume(const boost::shared_ptr<TImage>& image,
                                                                  unsigned long start, unsigned long size,
                                                                  unsigned long planBytes)
{
    if (ProcessingResult<bool> result = checkVolume(image.get(), *this); !result) {
        return result;
    }
    if (!isWithin(start, size, image->getSizeZ())) {
        return failure(eImageSplitMessage::ePlansOutside, size, start, image->getSizeZ());
    }
    m_image = image;
    m_first = start;
    m_demand = {true, size, std::min(planBytes, planBytesOf(*image)), 1};
    return true;
}

template <class TImage>
ProcessingResult<bool> BaseImageStripSplit<TImage>::failRange(unsigned long start, unsigned long size) const
{
    return failure(eImageSplitMessage::eRangeOutside, size, start, m_demand.nbLines);
}

template class BaseImageStripSplit<image::BaseImage>;
template class BaseImageStripSplit<const image::BaseImage>;

} // namespace orlix::imaproc
