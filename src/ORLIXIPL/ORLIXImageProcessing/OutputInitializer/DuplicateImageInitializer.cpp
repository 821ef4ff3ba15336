#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateImageInitializer.h"

#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

namespace {

/// The axis that was asked for, or the input's where none was.
template <class TAxis>
const TAxis& choose(const TAxis& asked, const TAxis& own)
{
    return asked == TAxis() ? own : asked;
}

} // namespace

ImagePtr duplicateImage(const image::BaseImage& source, const image::eImageBufferType& type,
                        const image::TemporalGeometry& temporal, const image::ColorGeometry& color,
                        const image::VolumeGeometry& volume)
{
    const image::BaseImageGeometry& own = source.getGeometry();
    const image::TemporalGeometry& sizeT = choose(temporal, own.getTemporalGeometry());
    const image::ColorGeometry& sizeC = choose(color, own.getColorGeometry());
    const image::VolumeGeometry& sizeZ = choose(volume, own.getVolumeGeometry());
    const bool bSameTypes = type == image::eImageBufferType::eNoBuffer;
    const ImagePtr made = bSameTypes && !own.hasUniformBufferType()
                              ? image::createImageBeside(source, {own.getBufferTypeVector(), own.getSizeX(),
                                                                  own.getSizeY(), sizeZ, sizeC, sizeT})
                              : image::createImageBeside(source, {bSameTypes ? own.getBufferType() : type,
                                                                  own.getSizeX(), own.getSizeY(), sizeZ, sizeC, sizeT});
    made->setGeometricCalibration(source.getGeometricCalibration());
    return made;
}

template <class TInputAttribute, class TOutputAttribute>
void DuplicateImageInitializer<TInputAttribute, TOutputAttribute>::init(const image::TemporalGeometry& temporal,
                                                                        const image::ColorGeometry& color,
                                                                        const image::VolumeGeometry& volume)
{
    m_temporal = temporal;
    m_color = color;
    m_volume = volume;
}

template <class TInputAttribute, class TOutputAttribute>
void DuplicateImageInitializer<TInputAttribute, TOutputAttribute>::init(
    const processor::AttributeRef<const BufferTypeAttribute>& type)
{
    m_type = type;
}

/// The one type of all time steps, or none where they are the input's.
template <class TInputAttribute, class TOutputAttribute>
image::eImageBufferType
DuplicateImageInitializer<TInputAttribute, TOutputAttribute>::getGivenType(const TOutputAttribute& output) const
{
    const image::eImageBufferType fixed = output.getFixedBufferType();
    const BufferTypeAttribute* type = m_type.access();
    return fixed == image::eImageBufferType::eNoBuffer && type != nullptr ? type->getValue() : fixed;
}

template <class TInputAttribute, class TOutputAttribute>
bool DuplicateImageInitializer<TInputAttribute, TOutputAttribute>::isOutputInitNeeded() const
{
    const TOutputAttribute* output = m_output.access();
    return output != nullptr && !output->isSet();
}

template <class TInputAttribute, class TOutputAttribute>
ProcessingResult<bool> DuplicateImageInitializer<TInputAttribute, TOutputAttribute>::initOutput()
{
    const TInputAttribute* input = m_input.access();
    TOutputAttribute* output = m_output.access();
    if (input == nullptr || output == nullptr || !input->isHeld()) {
        return ProcessingResult<bool>::failure(formatMessage<eImageSplitMessage>(eImageSplitMessage::eInputMissing));
    }
    output->init(duplicateImage(input->getImage(), getGivenType(*output), m_temporal, m_color, m_volume));
    return true;
}

template class DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>;

} // namespace orlix::imaproc
