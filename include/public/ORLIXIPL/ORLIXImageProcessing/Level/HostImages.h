// Whether all images of a level lie where its work is done, asked before anything is written.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AttributeValues.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <type_traits>

namespace orlix::imaproc {

namespace details {

/// The failure of attribute `name`, whose image is on a device.
ORLIXIMAGEPROCESSING_API ProcessingResult<bool> refuseDeviceImage(const char* name, const image::BaseImage& image);

/// The image of the attribute; null where that holds none, or something else.
template <class TAttribute, class TValues>
const image::BaseImage* imageOf(const TValues& values)
{
    const auto& value = values.template get<TAttribute>();
    if constexpr (requires { processor::pointerTo(value); }) {
        if constexpr (std::is_convertible_v<decltype(processor::pointerTo(value)), const image::BaseImage*>) {
            return processor::pointerTo(value);
        }
    }
    return nullptr;
}

template <class TAttribute, class TValues>
ProcessingResult<bool> checkHostImage(const TValues& values)
{
    const image::BaseImage* const image = imageOf<TAttribute>(values);
    return image == nullptr || image->getPixelLayout().first != nullptr ? true
                                                                        : refuseDeviceImage(TAttribute::g_name, *image);
}

} // namespace details

/// Fails, and names the attribute, where an image of the attributes is on a device.
template <class... TAttributes, class TValues>
ProcessingResult<bool> checkHostImages(const TValues& values)
{
    ProcessingResult<bool> result = true;
    static_cast<void>(((result = details::checkHostImage<TAttributes>(values)) && ...));
    return result;
}

/// Is there an image of the host among those of the attributes?
template <class... TAttributes, class TValues>
bool hasHostImage(const TValues& values)
{
    const auto isOnHost = [](const image::BaseImage* image) {
        return image != nullptr && image->getPixelLayout().first != nullptr;
    };
    return (isOnHost(details::imageOf<TAttributes>(values)) || ...);
}

} // namespace orlix::imaproc
