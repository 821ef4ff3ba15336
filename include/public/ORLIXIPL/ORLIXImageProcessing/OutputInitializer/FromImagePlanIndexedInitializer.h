// Makes a missing output that has an entry for each plan, or volume, of an image.
#pragma once

#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"
#include "ORLIX/ORLIXBaseProcessing/BaseOutputInitializer.h"
#include "ORLIX/ORLIXBaseProcessing/InitializerTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/PlanIndexedRules.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc {

/// A new collection of the output's class with fresh entries: for each plan of the image, or, where volumes count, for
/// each channel and time step, at z 0.
template <class TOutput>
typename TOutput::StorageType makePlanIndexed(const image::BaseImage& image, eImageParts parts)
{
    const PlanIndex sizes = nbEntriesOf(image, parts);
    const auto coll = boost::make_shared<typename TOutput::StorageType::element_type>();
    coll->initPlanIndexed(sizes.z, sizes.c, sizes.t);
    return coll;
}

/// Sets an unset `TOutput` to such a collection.
template <class TOutput>
class FromImagePlanIndexedInitializer final : public processor::BaseOutputInitializer
{
public:
    FromImagePlanIndexedInitializer(const processor::AttributeRef<TOutput>& output,
                                    const processor::AttributeRef<const BaseImageAttribute>& image, eImageParts parts)
        : m_output(output), m_image(image), m_parts(parts)
    {}

    bool isOutputInitNeeded() const override
    {
        const TOutput* const output = m_output.access();
        return output != nullptr && !output->isSet();
    }
    ProcessingResult<bool> initOutput() override
    {
        const BaseImageAttribute* const image = m_image.access();
        if (ProcessingResult<bool> result = details::checkHeld(image); !result) {
            return result;
        }
        m_output.access()->init(makePlanIndexed<TOutput>(image->getImage(), m_parts));
        return true;
    }

private:
    processor::AttributeRef<TOutput> m_output;
    processor::AttributeRef<const BaseImageAttribute> m_image;
    eImageParts m_parts;
};

/// The initializer of an output with an entry for each plan of the image.
template <class TOutput, class TImage>
boost::shared_ptr<processor::BaseOutputInitializer> fromImage(const boost::shared_ptr<TOutput>& output,
                                                              const boost::shared_ptr<TImage>& image)
{
    return boost::make_shared<FromImagePlanIndexedInitializer<TOutput>>(output, image, eImageParts::ePlans);
}
/// And that of one with an entry for each volume.
template <class TOutput, class TImage>
boost::shared_ptr<processor::BaseOutputInitializer> fromImageButVolume(const boost::shared_ptr<TOutput>& output,
                                                                       const boost::shared_ptr<TImage>& image)
{
    return boost::make_shared<FromImagePlanIndexedInitializer<TOutput>>(output, image, eImageParts::eVolumes);
}

/// Both as a type, see InitializerTypes.h.
template <class TOutput, class TImage, eImageParts::domain parts = eImageParts::ePlans>
struct FromImage
{
    using Output = TOutput;

    template <class TAttributes>
    static boost::shared_ptr<processor::BaseOutputInitializer> make(const TAttributes& attributes)
    {
        return boost::make_shared<FromImagePlanIndexedInitializer<TOutput>>(processor::own<TOutput>(attributes),
                                                                            processor::own<TImage>(attributes), parts);
    }
    /// Null where there is no image.
    template <class TValues>
    static typename TOutput::StorageType makeOutput(const TValues& values)
    {
        const image::BaseImage* const image = processor::pointerTo(values.template get<TImage>());
        return image == nullptr ? typename TOutput::StorageType() : makePlanIndexed<TOutput>(*image, parts);
    }
};
template <class TOutput, class TImage>
using FromImageButVolume = FromImage<TOutput, TImage, eImageParts::eVolumes>;

} // namespace orlix::imaproc
