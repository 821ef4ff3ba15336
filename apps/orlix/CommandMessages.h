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
        eUnknownVerb = 2,           ///< what was given, hint of `nearHint`, verbs
        eUnknownInstructionSet = 3, ///< what was given, hint of `nearHint`, sets of this processor
        eInstructionSetMissing = 4, ///< name of the set, sets of this processor
        eOptionForTiffOnly = 5,     ///< option, output file
        eOutputClosed = 6,          ///< reason of the system
        eNoMemory = 7,
        eUnknownFailure = 8,
        eInterrupted = 9,
        eNotComparable = 10,      ///< file, geometry, file, geometry
        ePictureNotPng = 11,      ///< file
        eTypeNotHeld = 12,        ///< output file, types that its format can hold, geometry
        eBadOption = 13,          ///< kind of value, what was given, hint of `nearHint`
        eUnknownProcessor = 14,   ///< what was given, hint of `nearHint`
        eAmbiguousProcessor = 15, ///< what was given, names
        eNoAssignment = 16,       ///< what was given
        eUnknownAttribute = 17,   ///< processor, what was given, hint of `nearHint`, attributes
        eAssignedTwice = 18,      ///< attribute or option
        eBadAssignment = 19,      ///< reason, hint of `nearHint`, processor
        eNotGiven = 20,           ///< attribute, attribute
        eNeedsGivenImage = 21,    ///< processor, attribute, attribute
        eNeedsValue = 22,         ///< processor, attribute, its tool tip, attribute, "FILE" or "VALUE"
        eNotFromOutside = 23,     ///< processor, attribute, kind of its value
        eSameTarget = 24,         ///< attribute, attribute, file
        eOutputNotMade = 25,      ///< processor, attribute
        eUnknownOption = 26,      ///< what was given, command, hint of `nearHint`, command
        eBeyondTolerance = 27,    ///< option, what was given, element type, largest tolerance
        eBeyondType = 28,         ///< option, what was given, element type, smallest and largest value
        eBoundsCross = 29,        ///< option, what was given, option, what was given
        eNoCodec = 30,            ///< what was given, compressions that can be had
        eValueMissing = 31,       ///< option, command
        eNoValueTaken = 32,       ///< option, command
        eNoFileName = 33,
        eNoSize = 34,
        eSizeTwice = 35,
        eNoRegion = 36,
        eRegionTwice = 37,     ///< option
        eNoDepth = 38,         ///< option, what was given, file
        eNoVolume = 39,        ///< file, geometry
        eIndexBeyond = 40,     ///< what was given, file, geometry, axis, last index, size
        eTypesDiffer = 41,     ///< file, geometry, file, geometry
        eNoSuchSlice = 42,     ///< file, "the volume " or nothing, geometry, axis, file, geometry of its slices
        eOtherAxesDiffer = 43, ///< file, geometry, file, geometry, what has to be the same
        eRegionSticksOut = 44, ///< file, geometry, place, file, geometry, axis, its size
        eTableNotRead = 45,    ///< table, reason of the system
        eTableTooLarge = 46,   ///< table, largest size in MiB
        eTableHasValues = 47,  ///< table, line
        eTableNotWritten = 48, ///< table, reason
        eColumnTwice = 49,     ///< table, line, column
        eColumnsMissing = 50,  ///< table, line, what it says
        eFieldCount = 51,      ///< place, count, count, what the line says
        eBadField = 52,        ///< place, column, what is expected, what was found
        ePlanNotTold = 53,     ///< image, geometry, table, columns
        eNoSuchPlan = 54,      ///< place, z, c, t, image, geometry
        ePointOutside = 55,    ///< place, point, image, first point, last point
        eMirrorNeedsTiles = 56,
        eNotCalibrated = 57,  ///< image
        eRotated = 58,        ///< image
        eNotAppendable = 59,  ///< file, geometry, file, geometry
        eForVolumesOnly = 60, ///< option, option of the size, what was given
        eNeedsOption = 61,    ///< option, option
        eOtherAxes = 62,      ///< option, what was given, option of the size, what was given
        eDevicesAlone = 63    ///< file
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
