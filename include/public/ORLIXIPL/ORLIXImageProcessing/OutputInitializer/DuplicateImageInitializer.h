// Makes a missing output image as a duplicate of the input's geometry.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseOutputInitializer.h"
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/BufferTypeAttribute.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc {

/// How the pixels of a made output are stored.
struct eImageStoragePolicy
{
    enum domain { eDefaultStorage = 0 };
    ORLIX_ENUMERATION(eImageStoragePolicy, eDefaultStorage);
};

/// A new image, on the device of `source` where that is on one, with the sizes and the calibration of `source` and, in
/// all time steps, element type `type`, those of `source` where it is none. An axis that is not default-constructed
/// stands for that of `source`. Throws as image::createImageBeside does.
ORLIXIMAGEPROCESSING_API ImagePtr duplicateImage(const image::BaseImage& source, const image::eImageBufferType& type,
                                                 const image::TemporalGeometry& temporal = {},
                                                 const image::ColorGeometry& color = {},
                                                 const image::VolumeGeometry& volume = {});

/// The output takes the input's sizes, calibration and element types. A type that its attribute fixes, or else one that
/// was asked for, stands for the input's.
template <class TInputAttribute, class TOutputAttribute>
class ORLIXIMAGEPROCESSING_API DuplicateImageInitializer final : public processor::BaseOutputInitializer
{
public:
    DuplicateImageInitializer(const processor::AttributeRef<TOutputAttribute>& output,
                              const processor::AttributeRef<const TInputAttribute>& input,
                              const eImageStoragePolicy& storage)
        : m_output(output), m_input(input), m_storage(storage)
    {}

    /// Axes of the output that differ from the input's; a default-constructed geometry stands for the input's own.
    void init(const image::TemporalGeometry& temporal, const image::ColorGeometry& color,
              const image::VolumeGeometry& volume);
    /// The element type of the output, read from `type` when it is made.
    void init(const processor::AttributeRef<const BufferTypeAttribute>& type);

    bool isOutputInitNeeded() const override;
    ProcessingResult<bool> initOutput() override;

private:
    image::eImageBufferType getGivenType(const TOutputAttribute& output) const;

    processor::AttributeRef<TOutputAttribute> m_output;
    processor::AttributeRef<const TInputAttribute> m_input;
    eImageStoragePolicy m_storage;
    image::TemporalGeometry m_temporal;
    image::ColorGeometry m_color;
    image::VolumeGeometry m_volume;
    processor::AttributeRef<const BufferTypeAttribute> m_type; ///< to nothing where the types are the input's
};

extern template class DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>;

/// The initializer of an output image that looks like its input.
template <class TInput, class TOutput>
boost::shared_ptr<processor::BaseOutputInitializer> duplicateInOut(const boost::weak_ptr<TOutput>& output,
                                                                   const boost::weak_ptr<TInput>& input,
                                                                   const eImageStoragePolicy& storage)
{
    using Initializer = DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>;
    const boost::shared_ptr<Initializer> initializer = boost::make_shared<Initializer>(output, input, storage);
    initializer->init({}, {}, {});
    return initializer;
}
/// The initializer of an output image that looks like its input, but has the element type that an attribute tells.
template <class TInput, class TOutput>
boost::shared_ptr<processor::BaseOutputInitializer>
duplicateInOut(const boost::weak_ptr<TOutput>& output, const boost::weak_ptr<TInput>& input,
               const processor::AttributeRef<const BufferTypeAttribute>& type)
{
    using Initializer = DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>;
    const boost::shared_ptr<Initializer> initializer =
        boost::make_shared<Initializer>(output, input, eImageStoragePolicy::eDefaultStorage);
    initializer->init(type);
    return initializer;
}

} // namespace orlix::imaproc
