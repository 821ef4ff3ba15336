// What rules hold of strip attributes of any kind.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/MarginStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/ZStripAttributes.h"

#include <concepts>

namespace orlix::imaproc {

namespace details {

// The strip of an attribute that holds one.
inline const image::BaseImageYStrip2d& stripOf(const BaseYStrip2dAttribute& attribute)
{
    return attribute.getBaseImageYStrip2d();
}
inline const image::BaseImageYStrip2d& stripOf(const BaseYStrip2dWithKernelAttribute& attribute)
{
    return attribute.getBaseImageYStrip2dWithKernel();
}
inline const image::BaseImageZStrip3d& stripOf(const BaseZStrip3dAttribute& attribute)
{
    return attribute.getBaseImageZStrip3d();
}
inline const image::BaseImageZStrip3d& stripOf(const BaseZStrip3dWithKernelAttribute& attribute)
{
    return attribute.getBaseImageZStrip3dWithKernel();
}

/// A shared or weak pointer to an attribute whose strip is a `TStrip`, with margins or without.
template <class TPointer, class TStrip>
concept PointerToStripOf = requires(const typename TPointer::element_type& attribute)
{
    {
        stripOf(attribute)
        } -> std::same_as<const TStrip&>;
};

} // namespace details

/// A reference to an attribute whatever its direction and margins, as `AttributeRef` is one to a single class.
template <class TStrip>
class StripRef
{
public:
    template <details::PointerToStripOf<TStrip> TPointer>
    StripRef(const TPointer& attribute)
        : m_attribute(attribute), m_read([](const BaseStripAttribute& held) -> const TStrip& {
              return details::stripOf(static_cast<const typename TPointer::element_type&>(held));
          })
    {}

    /// The attribute, or null where it is gone.
    const BaseStripAttribute* access() const { return m_attribute.access(); }
    /// For an attribute that holds a strip.
    const TStrip& getStrip(const BaseStripAttribute& attribute) const { return m_read(attribute); }

private:
    processor::AttributeRef<const BaseStripAttribute> m_attribute;
    const TStrip& (*m_read)(const BaseStripAttribute&);
};

using YStripRef = StripRef<image::BaseImageYStrip2d>;
using ZStripRef = StripRef<image::BaseImageZStrip3d>;

/// A shared or weak pointer to an attribute that carries a strip of plans, or of volumes.
template <class TPointer>
concept YStripPointer = details::PointerToStripOf<TPointer, image::BaseImageYStrip2d>;
template <class TPointer>
concept ZStripPointer = details::PointerToStripOf<TPointer, image::BaseImageZStrip3d>;

} // namespace orlix::imaproc
