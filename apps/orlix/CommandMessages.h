// Messages of the command line.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::cli {

/// A wish that the command line can't fulfil.
class CommandException : public BaseException
{
public:
    using BaseException::BaseException;
};

struct eCommandMessage
{
    enum domain {
        eBadArguments = 0,          ///< what is wrong, command that tells more
        eNoVerb = 1,                ///< verbs
        eUnknownVerb = 2,           ///< what was given, verbs
        eUnknownInstructionSet = 3, ///< what was given, sets of this processor
        eInstructionSetMissing = 4, ///< name of the set, sets of this processor
        eOptionForTiffOnly = 5,     ///< option, output file
        eOutputClosed = 6,          ///< reason of the system
        eNoMemory = 7,
        eUnknownFailure = 8,
        eInterrupted = 9,
        eNotComparable = 10,      ///< file, geometry, file, geometry
        ePictureNotPng = 11,      ///< file
        eTypeNotHeld = 12,        ///< output file, types that its format can hold, geometry
        eBadOption = 13,          ///< kind of value, what was given
        eUnknownProcessor = 14,   ///< what was given, "near it are ...; " or nothing
        eAmbiguousProcessor = 15, ///< what was given, names
        eNoAssignment = 16,       ///< what was given
        eUnknownAttribute = 17,   ///< processor, what was given, attributes
        eAssignedTwice = 18,      ///< attribute
        eBadAssignment = 19,      ///< reason, processor
        eNotGiven = 20,           ///< attribute, attribute
        eNeedsGivenImage = 21,    ///< processor, attribute, attribute
        eNeedsValue = 22,         ///< processor, attribute, its tool tip, attribute, "FILE" or "VALUE"
        eNotFromOutside = 23,     ///< processor, attribute, kind of its value
        eSameTarget = 24,         ///< attribute, attribute, file
        eOutputNotMade = 25       ///< processor, attribute
    };
    ORLIX_ENUMERATION(eCommandMessage, eBadArguments);
};

} // namespace orlix::cli

namespace orlix {

template <>
struct MessageCatalogue<cli::eCommandMessage>
{
    using Exception = cli::CommandException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
