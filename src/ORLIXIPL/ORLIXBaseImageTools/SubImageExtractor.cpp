// Bounds and geometries of extracted parts.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"

#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"

#include <boost/make_shared.hpp>

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

} // namespace

ProcessingResult<bool> SubImageExtractor::viewPlan(unsigned long z, unsigned long c, unsigned long t,
                                                   const BaseImage& image, boost::shared_ptr<SubImage>& view)
{
    if (z >= image.getSizeZ() || c >= image.getSizeC() || t >= image.getSizeT()) {
        return BoolResult::failure(formatMessage<eORLIXBaseImageToolsMessage>(
            eORLIXBaseImageToolsMessage::ePlanOutOfRange, z, c, t, image.getGeometry().toString()));
    }
    view = boost::make_shared<SubImage>(image, planGeometry(image, t), z, c, t);
    return true;
}

ProcessingResult<bool> SubImageExtractor::viewVolume(unsigned long c, unsigned long t, const BaseImage& image,
                                                     boost::shared_ptr<SubImage>& view)
{
    if (c >= image.getSizeC() || t >= image.getSizeT()) {
        return BoolResult::failure(formatMessage<eORLIXBaseImageToolsMessage>(
            eORLIXBaseImageToolsMessage::eVolumeOutOfRange, c, t, image.getGeometry().toString()));
    }
    view = boost::make_shared<SubImage>(image, volumeGeometry(image, t), 0, c, t);
    return true;
}

ProcessingResult<bool> SubImageExtractor::viewSteps(unsigned long firstStep, unsigned long nbSteps,
                                                    const BaseImage& image, boost::shared_ptr<SubImage>& view)
{
    if (firstStep > image.getSizeT() || nbSteps > image.getSizeT() - firstStep) {
        return BoolResult::failure(formatMessage<eORLIXBaseImageToolsMessage>(
            eORLIXBaseImageToolsMessage::eStepsOutOfRange, image.getGeometry().toString(), nbSteps, firstStep));
    }
    // A range of no steps may start behind the last one, where no address is.
    const unsigned long start = nbSteps > 0 ? firstStep : 0;
    view = boost::make_shared<SubImage>(image, sequenceGeometry(image.getGeometry(), start, nbSteps), 0, 0, start);
    return true;
}

} // namespace orlix::image
