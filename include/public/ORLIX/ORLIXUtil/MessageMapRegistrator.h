// Fills the catalogue of an enumeration at load.
#pragma once

#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix {

/// The second parameter is always void; it leaves room for specialisations by condition.
template <class TEnum, class = void>
class MessageMapRegistrator
{
public:
    /// Enters the catalogue's texts into its manager, once, however often and from whatever thread it is called.
    static void process()
    {
        static const bool g_bFilled = (details::fillCatalogue(details::catalogueAccess<TEnum>()), true);
        static_cast<void>(g_bFilled);
    }
};

} // namespace orlix
