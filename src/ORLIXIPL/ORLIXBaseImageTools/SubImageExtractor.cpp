// Bounds and geometries of extracted parts and of joined sequences.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"

#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace orlix::image {

using tools::eORLIXBaseImageToolsMessage;

namespace {

BaseImageGeometry sequenceGeometry(const BaseImageGeometry& geometry, unsigned long firstStep, unsigned long nbSteps)
{
    TemporalGeometry temporal = geometry.getTemporalGeometry();
    if (temporal.isSequence() || nbSteps != 1) {
        temporal.initSequence(nbSteps);
    }
    if (geometry.hasUniformBufferType() || nbSteps == 0) {
        return {geometry.getBufferType(),     geometry.getSizeX(),         geometry.getSizeY(),
                geometry.getVolumeGeometry(), geometry.getColorGeometry(), temporal};
    }
    std::vector<eImageBufferType> types;
    types.reserve(nbSteps);
    for (unsigned long t = firstStep; t < firstStep + nbSteps; ++t) {
        types.push_back(geometry.getBufferType(t));
    }
    return {
        types,   geometry.getSizeX(), geometry.getSizeY(), geometry.getVolumeGeometry(), geometry.getColorGeometry(),
        temporal};
}

template <class... TArgs>
ProcessingResult<bool> failure(eORLIXBaseImageToolsMessage::domain id, const TArgs&... args)
{
    return BoolResult::failure(formatMessage<eORLIXBaseImageToolsMessage>(id, args...));
}

bool hasSamePlans(const BaseImage& one, const BaseImage& other)
{
    return one.getSizeX() == other.getSizeX() && one.getSizeY() == other.getSizeY() &&
           one.getSizeZ() == other.getSizeZ() && one.getSizeC() == other.getSizeC();
}

// A list of types is made only where there are several: steps without pixels may be without end.
bool isOfOneType(const std::vector<const BaseImage*>& images)
{
    return std::ranges::all_of(images, [&](const BaseImage* image) {
        return image->getGeometry().hasUniformBufferType() && image->getBufferType() == images.front()->getBufferType();
    });
}

ProcessingResult<bool> viewOnDevice(const std::vector<const BaseImage*>& images, const BaseImageGeometry& geometry,
                                    ImagePtr& view)
{
    std::vector<const CudaImage*> parts;
    for (const BaseImage* const image : images) {
        const auto* const part = dynamic_cast<const CudaImage*>(image);
        if (!part || (!parts.empty() && part->getDeviceIndex() != parts.front()->getDeviceIndex())) {
            return failure(eORLIXBaseImageToolsMessage::eNotOnOneDevice, images.front()->getGeometry().toString(),
                           image->getGeometry().toString());
        }
        parts.push_back(part);
    }
    view = boost::make_shared<CudaImage>(parts, geometry);
    return true;
}

} // namespace

ProcessingResult<bool> SubImageExtractor::viewPlan(unsigned long z, unsigned long c, unsigned long t,
                                                   const BaseImage& image, ImagePtr& view)
{
    if (z >= image.getSizeZ() || c >= image.getSizeC() || t >= image.getSizeT()) {
        return BoolResult::failure(formatMessage<eORLIXBaseImageToolsMessage>(
            eORLIXBaseImageToolsMessage::ePlanOutOfRange, z, c, t, image.getGeometry().toString()));
    }
    view = makeView(image, planGeometry(image, t), z, c, t);
    return true;
}

ProcessingResult<bool> SubImageExtractor::viewVolume(unsigned long c, unsigned long t, const BaseImage& image,
                                                     ImagePtr& view)
{
    if (c >= image.getSizeC() || t >= image.getSizeT()) {
        return BoolResult::failure(formatMessage<eORLIXBaseImageToolsMessage>(
            eORLIXBaseImageToolsMessage::eVolumeOutOfRange, c, t, image.getGeometry().toString()));
    }
    view = makeView(image, volumeGeometry(image, t), 0, c, t);
    return true;
}

ProcessingResult<bool> SubImageExtractor::viewSteps(unsigned long firstStep, unsigned long nbSteps,
                                                    const BaseImage& image, ImagePtr& view)
{
    if (firstStep > image.getSizeT() || nbSteps > image.getSizeT() - firstStep) {
        return BoolResult::failure(formatMessage<eORLIXBaseImageToolsMessage>(
            eORLIXBaseImageToolsMessage::eStepsOutOfRange, image.getGeometry().toString(), nbSteps, firstStep));
    }
    // A range of no steps may start behind the last one, where no address is.
    const unsigned long start = nbSteps > 0 ? firstStep : 0;
    view = makeView(image, sequenceGeometry(image.getGeometry(), start, nbSteps), 0, 0, start);
    return true;
}

ProcessingResult<bool> SubImageExtractor::joinGeometries(const std::vector<const BaseImage*>& images,
                                                         boost::shared_ptr<BaseImageGeometry>& geometry)
{
    if (images.empty() || std::ranges::find(images, nullptr) != images.end()) {
        return failure(eORLIXBaseImageToolsMessage::eNothingToJoin);
    }
    const BaseImageGeometry& first = images.front()->getGeometry();
    unsigned long nbSteps = 0;
    for (const BaseImage* const image : images) {
        if (!hasSamePlans(*images.front(), *image)) {
            return failure(eORLIXBaseImageToolsMessage::eNotJoinable, first.toString(),
                           image->getGeometry().toString());
        }
        if (__builtin_add_overflow(nbSteps, image->getSizeT(), &nbSteps)) {
            return failure(eORLIXBaseImageToolsMessage::eTooManySteps, first.toString());
        }
    }
    TemporalGeometry temporal;
    temporal.initSequence(nbSteps);
    const auto with = [&](const auto& type) {
        return boost::make_shared<BaseImageGeometry>(type, first.getSizeX(), first.getSizeY(),
                                                     first.getVolumeGeometry(), first.getColorGeometry(), temporal);
    };
    if (isOfOneType(images)) {
        geometry = with(first.getBufferType());
        return true;
    }
    std::vector<eImageBufferType> types;
    types.reserve(nbSteps);
    for (const BaseImage* const image : images) {
        for (unsigned long t = 0; t < image->getSizeT(); ++t) {
            types.push_back(image->getBufferType(t));
        }
    }
    geometry = types.empty() ? with(first.getBufferType()) : with(types);
    return true;
}

ProcessingResult<bool> SubImageExtractor::viewSequences(const std::vector<const BaseImage*>& images, ImagePtr& view)
{
    boost::shared_ptr<BaseImageGeometry> geometry;
    if (ProcessingResult<bool> result = joinGeometries(images, geometry); !result) {
        return result;
    }
    if (images.front()->isGpuImage()) {
        return viewOnDevice(images, *geometry, view);
    }
    for (const BaseImage* const image : images) {
        if (!image->getPixelLayout().first) {
            return failure(eORLIXBaseImageToolsMessage::eNoHostPixels, image->getGeometry().toString());
        }
    }
    view = boost::make_shared<SubImage>(images, *geometry);
    return true;
}

} // namespace orlix::image
