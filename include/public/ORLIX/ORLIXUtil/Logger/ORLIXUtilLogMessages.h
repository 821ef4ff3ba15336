// Messages of ORLIXUtil.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"

namespace orlix {

struct eORLIXUtilErrors
{
    enum domain {
        eUnknownMessage = 0,
        eWrongArguments = 1,
        eMessageConflict = 2,
        eNoCopySupport = 3, ///< argument: name of the class
        eUnknownClass = 4,
        eClassAlreadyRegistered = 5,
        eUnwritableFile = 6
    };
    ORLIX_ENUMERATION(eORLIXUtilErrors, eUnknownMessage);
};

template <>
struct ORLIXUTIL_API MessageCatalogue<eORLIXUtilErrors>
{
    using Exception = ORLIXUtilException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
