// Attributes behind weak references, held while they are read.
#pragma once

#include "ORLIX/ORLIXUtil/Raise.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

namespace orlix::imaproc::util {

/// The attribute, which stays as long as the pointer, whatever becomes of its processor. Raises message `id` of
/// `TMessage`, as from `place`, where the reference is empty, the attribute is gone, or it holds nothing.
template <class TMessage, class TAttribute>
boost::shared_ptr<TAttribute> lockHeld(const boost::weak_ptr<TAttribute>& reference, typename TMessage::domain id,
                                       const SourcePlace& place)
{
    boost::shared_ptr<TAttribute> attribute = reference.lock();
    if (!attribute || !attribute->isHeld()) {
        raise<TMessage>(place, id);
    }
    return attribute;
}

} // namespace orlix::imaproc::util
