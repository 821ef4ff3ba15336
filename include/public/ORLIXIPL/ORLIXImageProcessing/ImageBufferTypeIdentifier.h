// The element type of an image as a kernel is chosen by it.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelIdentifiers.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

namespace orlix::imaproc {

class ImageBufferTypeIdentifier final : public processor::BaseDataTypeIdentifier
{
public:
    ImageBufferTypeIdentifier() = default;
    explicit ImageBufferTypeIdentifier(const image::eImageBufferType& type) { init(type); }
    void init(const image::eImageBufferType& type)
    {
        initBase(static_cast<unsigned>(static_cast<image::eImageBufferType::domain>(type)));
    }
};

} // namespace orlix::imaproc
