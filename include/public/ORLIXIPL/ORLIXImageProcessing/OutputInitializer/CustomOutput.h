// Makes a missing output image as a custom image info says.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/InitializerTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomImageInfo.h"

#include <concepts>

namespace orlix::imaproc {

/// The initializer of an output image that looks as `info` says, in the one element type that the attribute fixes if it
/// fixes one, with the info's calibration. What the info throws, the initializer throws.
ORLIXIMAGEPROCESSING_API boost::shared_ptr<processor::BaseOutputInitializer>
customOutput(const processor::AttributeRef<BaseOutputImageAttribute>& output,
             const boost::shared_ptr<const BaseCustomImageInfo>& info);

/// The same as a type, see InitializerTypes.h. `TInfo` has
///     template <class TAttributes>
///     static boost::shared_ptr<const BaseCustomImageInfo> make(const TAttributes& attributes);   // OwnAttributes
/// and, where calls make the output without a processor,
///     template <class TValues>
///     static ImagePtr makeOutput(const TValues& values);              // the same image; null: leave it to `make`
template <class TOutput, class TInfo>
struct CustomOutput
{
    using Output = TOutput;

    template <class TAttributes>
    static boost::shared_ptr<processor::BaseOutputInitializer> make(const TAttributes& attributes)
    {
        return customOutput(processor::own<TOutput>(attributes), TInfo::make(attributes));
    }
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        if constexpr (requires { TInfo::makeOutput(values); }) {
            return TInfo::makeOutput(values);
        } else {
            return {};
        }
    }
};

} // namespace orlix::imaproc
