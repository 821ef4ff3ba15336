// How rules and initializers reach attributes that may be gone.
#pragma once

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include <boost/smart_ptr/weak_ptr.hpp>

namespace orlix::imaproc::util {

/// The attribute, which lives on while the result does. Raises message `id` at `place` where it is gone or holds
/// nothing.
template <class TMessage, class TAttribute>
boost::shared_ptr<TAttribute> lockAttribute(const SourcePlace& place, typename TMessage::domain id,
                                            const boost::weak_ptr<TAttribute>& attribute)
{
    boost::shared_ptr<TAttribute> locked = attribute.lock();
    bool bHeld = locked != nullptr;
    if constexpr (requires { locked->getDataItemNode(); }) {
        bHeld = bHeld && locked->isHeld();
    }
    if (!bHeld) {
        raise<TMessage>(place, id);
    }
    return locked;
}

/// The image of the attribute. Raises message `id` at `place` where there is none.
template <class TMessage>
ImageConstPtr lockImage(const SourcePlace& place, typename TMessage::domain id,
                        const boost::weak_ptr<const BaseImageAttribute>& attribute)
{
    ImageConstPtr image = lockAttribute<TMessage>(place, id, attribute)->getImagePtr();
    if (!image) {
        raise<TMessage>(place, id);
    }
    return image;
}

} // namespace orlix::imaproc::util
