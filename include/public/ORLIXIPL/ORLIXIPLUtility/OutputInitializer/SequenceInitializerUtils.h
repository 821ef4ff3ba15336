// How an output is made that takes the time steps of two sequences.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomImageInfo.h"

namespace orlix::imaproc::util {

/// The steps of two images, each with its element type; all other sizes and the calibration are the first image's.
/// Asking throws ORLIXImageProcessingException where an attribute holds no image, or is gone, and
/// ORLIXBaseImageToolsException where the two can't be joined.
class ORLIXIPLUTILITY_API AppendSeqOutputInitializer final : public BaseFromImageCustomImageInfo
{
public:
    /// The first image is the info's input image.
    explicit AppendSeqOutputInitializer(const boost::weak_ptr<const BaseImageAttribute>& second) : m_second(second) {}
    ~AppendSeqOutputInitializer() override;

    /// Not for images that can't be joined: why, the rules have to say.
    bool isOutputInitNeeded() const override;
    image::eImageBufferType getImageBufferType() const override;
    std::vector<image::eImageBufferType> getImageBufferTypeVector() const override;
    image::TemporalGeometry getTemporalGeometry() const override;

private:
    ProcessingResult<bool> join(boost::shared_ptr<image::BaseImageGeometry>& geometry) const;
    image::BaseImageGeometry getJoinedGeometry() const;

    boost::weak_ptr<const BaseImageAttribute> m_second;
};

/// (X, Y, Z, C, T1), (X, Y, Z, C, T2) -> (X, Y, Z, C, T1 + T2): for `customOutput`. Keeps weak references, which are
/// read whenever an output is made.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputAppendSeq(const boost::weak_ptr<const BaseImageAttribute>& first,
                const boost::weak_ptr<const BaseImageAttribute>& second);

} // namespace orlix::imaproc::util
