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
        eNotComparable = 10, ///< file, geometry, file, geometry
        ePictureNotPng = 11  ///< file
    };
    ORLIX_ENUMERATION(eCommandMessage, eBadArguments);
};

} // namespace orlix::cli

namespace orlix {

template <>
struct MessageCatalogue<cli::eCommandMessage>
{
    using Exception = cli::CommandException;
    static LogMessageManager& manager();
    static log4cplus::Logger logger();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
