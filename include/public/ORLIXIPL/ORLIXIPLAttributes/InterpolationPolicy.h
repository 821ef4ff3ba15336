// How a value between pixels is made from the pixels around it.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/EnumerationNames.h"

#include <array>

namespace orlix::imaproc::attr {

/// Every other number acts as `eIP_NearestNeighbour`.
struct eInterpolationPolicy
{
    enum domain : unsigned int {
        eIP_NearestNeighbour = 0, ///< 1 pixel; a half goes up
        eIP_Linear = 1,           ///< 2 pixels on each axis
        eIP_Cubic = 2             ///< 4 pixels on each axis, Catmull-Rom; may go beyond their range
    };
    ORLIX_ENUMERATION(eInterpolationPolicy, eIP_NearestNeighbour);
};

/// Pixels before the one that a coordinate lies on or behind, on each axis, that the policy may read: 0, 0 or 1.
constexpr unsigned long getStartingKernelSize(const eInterpolationPolicy& policy)
{
    return policy == eInterpolationPolicy::eIP_Cubic ? 1 : 0;
}
/// Pixels behind it: 1, 1 or 2.
constexpr unsigned long getEndingKernelSize(const eInterpolationPolicy& policy)
{
    return policy == eInterpolationPolicy::eIP_Cubic ? 2 : 1;
}

} // namespace orlix::imaproc::attr

namespace orlix {

template <>
struct EnumerationNames<imaproc::attr::eInterpolationPolicy>
{
    using Policy = imaproc::attr::eInterpolationPolicy;

    static constexpr std::array<Policy::domain, 3> g_values = {Policy::eIP_NearestNeighbour, Policy::eIP_Linear,
                                                               Policy::eIP_Cubic};
    /// "nearest" for a value without a name of its own, as it acts so.
    static const char* nameOf(const Policy& policy)
    {
        switch (static_cast<Policy::domain>(policy)) {
        case Policy::eIP_Linear: return "linear";
        case Policy::eIP_Cubic: return "cubic";
        default: return "nearest";
        }
    }
};

} // namespace orlix
