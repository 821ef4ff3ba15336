#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/SequenceInitializerUtils.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXImageProcessing/HeldImage.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

using image::tools::eORLIXBaseImageToolsMessage;

AppendSeqOutputInitializer::~AppendSeqOutputInitializer() = default;

ProcessingResult<bool> AppendSeqOutputInitializer::join(boost::shared_ptr<image::BaseImageGeometry>& geometry) const
{
    return image::SubImageExtractor::getGeometryResultingFromSeqConcatenation<const image::BaseImage>(
        {getInputImage(), imageHeldBy(m_second)}, geometry);
}

image::BaseImageGeometry AppendSeqOutputInitializer::getJoinedGeometry() const
{
    requireImage(getInputImage());
    requireImage(imageHeldBy(m_second));
    boost::shared_ptr<image::BaseImageGeometry> geometry;
    if (const ProcessingResult<bool> result = join(geometry); !result) {
        raiseFailure<eORLIXBaseImageToolsMessage>(ORLIX_HERE, eORLIXBaseImageToolsMessage::eNotJoined,
                                                  result.getMessage());
    }
    return *geometry;
}

bool AppendSeqOutputInitializer::isOutputInitNeeded() const
{
    boost::shared_ptr<image::BaseImageGeometry> geometry;
    return join(geometry).getValue();
}

image::eImageBufferType AppendSeqOutputInitializer::getImageBufferType() const
{
    return getJoinedGeometry().getBufferType();
}

std::vector<image::eImageBufferType> AppendSeqOutputInitializer::getImageBufferTypeVector() const
{
    const image::BaseImageGeometry geometry = getJoinedGeometry();
    const auto nbSteps = static_cast<unsigned int>(geometry.getSizeT());
    std::vector<image::eImageBufferType> types;
    for (unsigned int t = 0; t < nbSteps; ++t) {
        types.push_back(geometry.getBufferType(t));
    }
    return types;
}

image::TemporalGeometry AppendSeqOutputInitializer::getTemporalGeometry() const
{
    return getJoinedGeometry().getTemporalGeometry();
}

boost::shared_ptr<BaseCustomImageInfo> outputAppendSeq(const boost::weak_ptr<const BaseImageAttribute>& first,
                                                       const boost::weak_ptr<const BaseImageAttribute>& second)
{
    auto info = boost::make_shared<AppendSeqOutputInitializer>(second);
    info->initBase(first);
    return info;
}

} // namespace orlix::imaproc::util
