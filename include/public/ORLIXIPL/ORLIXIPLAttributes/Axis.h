// The axes of a volume.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/EnumerationNames.h"

#include <array>

namespace orlix::imaproc {

struct eAxis
{
    enum domain { eX = 0, eY = 1, eZ = 2 };
    ORLIX_ENUMERATION(eAxis, eX);
};

} // namespace orlix::imaproc

namespace orlix {

template <>
struct EnumerationNames<imaproc::eAxis>
{
    static constexpr std::array<imaproc::eAxis::domain, 3> g_values = {imaproc::eAxis::eX, imaproc::eAxis::eY,
                                                                       imaproc::eAxis::eZ};
    /// "none" for a value that is no axis.
    static const char* nameOf(const imaproc::eAxis& axis)
    {
        switch (static_cast<imaproc::eAxis::domain>(axis)) {
        case imaproc::eAxis::eX: return "x";
        case imaproc::eAxis::eY: return "y";
        case imaproc::eAxis::eZ: return "z";
        }
        return "none";
    }
};

} // namespace orlix
