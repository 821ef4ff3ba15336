// Images over memory of the caller's: as a value, and over part of a buffer.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// What `wrapImage` makes, in the caller's frame instead of shared: for calls on so few pixels that making a shared one
/// takes as long as the work. Whoever is given it by `lend` must be done with it, and with all views of it, before it
/// goes: `runStraight` of OperatorCall.h is, a processor may not be.
class ORLIXIMAGE_API WrappedImage final : public BaseImage
{
public:
    /// Throws as `wrapImage` does. The memory has to outlive the image.
    WrappedImage(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides);
    ~WrappedImage() override;

    /// A pointer that neither owns nor counts.
    ImagePtr lend() { return {ImagePtr(), this}; }
};

/// What `wrapImage` makes, over part of a buffer of `bufferBytes`. An image that is written part by part is written
/// past the caches where the whole of it would be.
ORLIXIMAGE_API ImagePtr wrapPart(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides,
                                 unsigned long bufferBytes, boost::shared_ptr<void> owner);

} // namespace orlix::image
