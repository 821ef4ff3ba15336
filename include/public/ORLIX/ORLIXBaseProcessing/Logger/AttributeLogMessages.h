// Messages of attributes.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::processor {

struct eAttributeMessage
{
    enum domain {
        eTakesNoText = 0,    ///< attribute, kind of its value
        eBadText = 1,        ///< attribute, kind of its value, text
        eBadItem = 2,        ///< attribute, what is wrong
        eHoldsNoItem = 3,    ///< attribute, kind of its value
        eOtherDirection = 4, ///< attribute, what it is, function to use
        eNoItemClass = 5,    ///< attribute
        eOtherItemClass = 6  ///< attribute, class required, class found
    };
    ORLIX_ENUMERATION(eAttributeMessage, eTakesNoText);
};

} // namespace orlix::processor

namespace orlix {

template <>
struct ORLIXBASEPROCESSING_API MessageCatalogue<processor::eAttributeMessage>
{
    using Exception = processor::ORLIXBaseProcessingException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
