#include "ORLIXIPL/ORLIXImageProcessing/Split/CudaSubImageSplit.h"

#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

template <class TImagePtr>
ProcessingResult<bool> BaseCudaSubImageSplit<TImagePtr>::initBase(const eSubImageSplitType& subImageType,
                                                                  const TImagePtr& image)
{
    m_nbElements = 0;
    if (!image) {
        return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(eImageSplitMessage::eNullImage));
    }
    if (subImageType != eSubImageSplitType::eSubImageOnDevice) {
        return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(eImageSplitMessage::eNotCutOnDevice));
    }
    const unsigned long nbPixels = image->getGeometry().getNbPixels();
    m_image = image;
    m_nbElements = nbPixels == 0 ? 0 : 1;
    m_cost = nbPixels * image::elementSize(image->getBufferType());
    return true;
}

template class BaseCudaSubImageSplit<ImagePtr>;
template class BaseCudaSubImageSplit<ImageConstPtr>;

} // namespace orlix::imaproc
