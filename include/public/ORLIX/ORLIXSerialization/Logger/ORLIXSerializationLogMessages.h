// Messages of ORLIXSerialization.
#pragma once

#include "ORLIX/ORLIXSerialization/Export.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix {

struct eORLIXSerializationMessage
{
    enum domain {
        eMissingEntry = 0,
        eOtherEntry = 1,
        eBadValue = 2,
        eUnreadEntry = 3,
        eNoOpenSection = 4,
        eTooDeep = 5,
        eTooLarge = 6,
        eNoArchive = 7,
        eNewerFormat = 8,
        eWrongChecksum = 9,
        eUnreadableFile = 10,
        eUnreadableStream = 11,
        eUnwritableStream = 12,
        eIncompleteArchive = 13,
        eUnknownClassVersion = 14,
        eClassVersionConflict = 15,
        eNewerClassVersion = 25 ///< arguments: class name, newest version known
    };
    ORLIX_ENUMERATION(eORLIXSerializationMessage, eMissingEntry);
};

template <>
struct ORLIXSERIALIZATION_API MessageCatalogue<eORLIXSerializationMessage>
{
    using Exception = ORLIXSerializationException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
