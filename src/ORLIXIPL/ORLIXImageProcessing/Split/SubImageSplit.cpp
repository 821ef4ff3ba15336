#include "ORLIXIPL/ORLIXImageProcessing/Split/SubImageSplit.h"

#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eImageSplitMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(id, args...));
}

/// Bytes of the elements of an image.
unsigned long bytesOf(const image::BaseImage& image)
{
    unsigned long bytes = 0;
    const unsigned long step = image.getSizeX() * image.getSizeY() * image.getSizeZ() * image.getSizeC();
    if (image.getGeometry().hasUniformBufferType()) {
        return step * image.getSizeT() * image::elementSize(image.getBufferType());
    }
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        bytes += step * image::elementSize(image.getBufferType(t));
    }
    return bytes;
}

bool isPlan(const image::BaseImageGeometry& geometry)
{
    return geometry.getVolumeGeometry() == image::VolumeGeometry() &&
           geometry.getColorGeometry() == image::ColorGeometry() &&
           geometry.getTemporalGeometry() == image::TemporalGeometry();
}

} // namespace

template <class TImagePtr>
ProcessingResult<bool>
BaseSubImageSplit<TImagePtr>::initBase(const eSubImageSplitType& subImageType, const eVolumeParsingType& volumeParsing,
                                       const eColorParsingType&, const eTemporalParsingType&, const TImagePtr& image)
{
    m_nbElements = 0;
    if (!image) {
        return failure(eImageSplitMessage::eNullImage);
    }
    m_bWholeVolume = subImageType == eSubImageSplitType::eSubImageVolume3d;
    if (m_bWholeVolume != (volumeParsing == eVolumeParsingType::eWholeVolume)) {
        return failure(eImageSplitMessage::eBadCut);
    }
    m_image = image;
    m_nbElements = (m_bWholeVolume ? 1 : image->getSizeZ()) * image->getSizeC() * image->getSizeT();
    m_cost = bytesOf(*image);
    return true;
}

template <class TImagePtr>
ProcessingResult<bool> BaseSubImageSplit<TImagePtr>::getSubImage(unsigned long index, TImagePtr& subImage) const
{
    if (index >= m_nbElements || !m_image) {
        return failure(eImageSplitMessage::eNoSuchElement, index, m_nbElements);
    }
    using image::SubImageExtractor;
    const auto& image = *m_image;
    if (isPlan(image.getGeometry())) {
        subImage = m_image; // it is its own only plan
        return true;
    }
    const unsigned long sizeC = image.getSizeC();
    if (m_bWholeVolume) {
        return SubImageExtractor::extractVolume(index % sizeC, index / sizeC, *m_image, subImage);
    }
    const unsigned long sizeZ = image.getSizeZ();
    return SubImageExtractor::extractPlan(index % sizeZ, index / sizeZ % sizeC, index / sizeZ / sizeC, *m_image,
                                          subImage);
}

template class BaseSubImageSplit<ImagePtr>;
template class BaseSubImageSplit<ImageConstPtr>;

} // namespace orlix::imaproc
