// What an output has to look like that takes the time steps of two sequences.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/CustomImageProperty.h"

namespace orlix::imaproc::util {

/// As many time steps as two images have together. Asking throws ORLIXImageProcessingException where an attribute holds
/// no image, or is gone.
class ORLIXIPLUTILITY_API FullAppendSeqImageSize final : public BaseCustomCheckedImageProperty
{
public:
    /// The first image is the property's input image.
    explicit FullAppendSeqImageSize(const boost::weak_ptr<const BaseImageAttribute>& second) : m_second(second) {}
    ~FullAppendSeqImageSize() override;

    image::TemporalGeometry getTemporalGeometry() const override;

private:
    boost::weak_ptr<const BaseImageAttribute> m_second;
};

/// (X1, Y1, Z1, C1, T1), (X2, Y2, Z2, C2, T2) -> (any, any, any, any, T1 + T2): for `customImageProperty`. Only the
/// size of t is checked. Keeps weak references, which are read at each check.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomCheckedImageProperty>
matchAppendSeq(const boost::weak_ptr<const BaseImageAttribute>& first,
               const boost::weak_ptr<const BaseImageAttribute>& second);

} // namespace orlix::imaproc::util
