// How heavy a class of processors is for its dispatchers.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchPolicy.h"

#include <concepts>

namespace orlix::processor {

/// What class `TProcessor` states as `static constexpr unsigned g_dispatchWeight`, for its default policy; 1 for a
/// class that states nothing. See `ProcessorDispatchPolicy::initWeight`.
template <class TProcessor>
constexpr unsigned dispatchWeightOf()
{
    if constexpr (requires { TProcessor::g_dispatchWeight; }) {
        static_assert(std::same_as<decltype(TProcessor::g_dispatchWeight), const unsigned>,
                      "a class states its weight as static constexpr unsigned g_dispatchWeight");
        static_assert(TProcessor::g_dispatchWeight > 0, "a class weighs 1 or more");
        return TProcessor::g_dispatchWeight;
    } else {
        return 1;
    }
}

/// Bytes that a strip of class `TProcessor` holds by its default policy.
template <class TProcessor>
constexpr unsigned long straightStripBytes()
{
    return ProcessorDispatchPolicy::g_defaultStripBytes / dispatchWeightOf<TProcessor>();
}

} // namespace orlix::processor
