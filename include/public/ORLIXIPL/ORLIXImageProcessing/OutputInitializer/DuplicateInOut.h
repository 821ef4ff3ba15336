// The initializers of output images that look like their input, as types; see InitializerTypes.h.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/InitializerTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateImageInitializer.h"

namespace orlix::imaproc {

/// Sizes, calibration and element types of the input, or the type that the output's attribute fixes.
template <class TInput, class TOutput>
struct DuplicateInOut
{
    using Output = TOutput;

    template <class TAttributes>
    static boost::shared_ptr<processor::BaseOutputInitializer> make(const TAttributes& attributes)
    {
        return duplicateInOut<TInput, TOutput>(processor::own<TOutput>(attributes), processor::own<TInput>(attributes),
                                               eImageStoragePolicy::eDefaultStorage);
    }
    /// Null where there is no input.
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        const image::BaseImage* const input = processor::pointerTo(values.template get<TInput>());
        return input == nullptr ? ImagePtr() : duplicateImage(*input, TOutput().getFixedBufferType());
    }
};

/// The same with the element type that attribute `TType` tells.
template <class TInput, class TOutput, class TType>
struct DuplicateInOutAs
{
    using Output = TOutput;

    template <class TAttributes>
    static boost::shared_ptr<processor::BaseOutputInitializer> make(const TAttributes& attributes)
    {
        return duplicateInOut<TInput, TOutput>(processor::own<TOutput>(attributes), processor::own<TInput>(attributes),
                                               processor::own<TType>(attributes));
    }
    /// Null where there is no input.
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        const image::BaseImage* const input = processor::pointerTo(values.template get<TInput>());
        const image::eImageBufferType fixed = TOutput().getFixedBufferType();
        return input == nullptr
                   ? ImagePtr()
                   : duplicateImage(*input,
                                    fixed == image::eImageBufferType::eNoBuffer ? values.template get<TType>() : fixed);
    }
};

} // namespace orlix::imaproc
