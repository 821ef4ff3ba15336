// Output initializers as types, one for each output that a level makes where nobody gave it.
//
// An initializer type has
//     using Output = <the attribute>;
//     template <class TAttributes>
//     static boost::shared_ptr<BaseOutputInitializer> make(const TAttributes& attributes);   // OwnAttributes
//     template <class TValues>
//     static typename Output::StorageType makeOutput(const TValues& values);
// and both make the same output.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AllocateInitializer.h"
#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIX/ORLIXBaseProcessing/RuleTypes.h"

namespace orlix::processor {

/// The initializers of a level; none of them: all outputs have to be given.
template <class... TInitializers>
struct OutputInitializers
{
    template <class TAttributes>
    static void make(const TAttributes& attributes, OutputInitializerMap& initializers)
    {
        (static_cast<void>(initializers[TInitializers::Output::getObjectNameStr()] = TInitializers::make(attributes)),
         ...);
    }

    /// The initializer of an output, `void` where the level makes none.
    template <class TOutput>
    static constexpr auto find()
    {
        return findAmong<TOutput, TInitializers...>();
    }

private:
    template <class TOutput>
    static constexpr auto findAmong()
    {
        return std::type_identity<void>();
    }
    template <class TOutput, class TFirst, class... TRest>
    static constexpr auto findAmong()
    {
        if constexpr (std::is_same_v<typename TFirst::Output, TOutput>) {
            return std::type_identity<TFirst>();
        } else {
            return findAmong<TOutput, TRest...>();
        }
    }
};

using AllOutputsGiven = OutputInitializers<>;

/// A data item by its default constructor.
template <class TOutput>
struct Allocated
{
    using Output = TOutput;

    template <class TAttributes>
    static boost::shared_ptr<BaseOutputInitializer> make(const TAttributes& attributes)
    {
        return allocate<TOutput>(own<TOutput>(attributes));
    }
    template <class TValues>
    static typename TOutput::StorageType makeOutput(const TValues&)
    {
        return boost::make_shared<typename TOutput::StorageType::element_type>();
    }
};

} // namespace orlix::processor
