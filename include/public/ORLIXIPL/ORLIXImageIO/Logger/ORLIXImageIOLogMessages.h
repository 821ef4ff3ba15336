// Messages of ORLIXImageIO.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXImageIO/Export.h"
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"

namespace orlix::image::io {

/// The first argument of each is the file; the further ones stand behind it.
struct eORLIXImageIOMessage
{
    enum domain {
        eCannotOpen = 0,       ///< reason of the system
        eNotARegularFile = 1,  ///< what it is
        eReadFailed = 2,       ///< reason of the system
        eUnknownContent = 3,   ///< first bytes
        eUnknownEnding = 4,    ///< ending
        eDamagedTiff = 5,      ///< page, reason of libtiff
        eUnsupportedTiff = 6,  ///< page, what it holds
        ePagesDiffer = 7,      ///< page, its description, first page, its description
        eTooManyElements = 8,  ///< sizes, limit
        eTooManyBytes = 9,     ///< sizes, bytes, limit
        eImplausibleSize = 10, ///< page, bytes it claims, smallest file that could hold them, bytes of the file
        eBadDescription = 11,  ///< kind of description, what is wrong
        eOutsideFile = 12,     ///< name of the other file, why it is not read
        eMissingPlan = 13,     ///< z, c, t
        eDamagedPng = 14,      ///< reason of libpng
        eNoMemory = 15,        ///< reason
        eReadingStopped = 16,
        eWritingStopped = 17,
        eNullImage = 18,
        eEmptyImage = 19,       ///< geometry
        eSeveralTypes = 20,     ///< geometry
        eNoHostPixels = 21,     ///< geometry
        eUnsuitableForPng = 22, ///< geometry
        eUnsuitableForRgb = 23, ///< geometry
        eNoCompression = 24,    ///< compression
        eBadTileSize = 25,      ///< tile size
        eTooLongForTiff = 26,   ///< geometry
        eCannotCreate = 27,     ///< folder, reason of the system
        eWriteFailed = 28,      ///< reason
        eCannotReplace = 29,    ///< reason of the system
        eVolumePage = 30,       ///< page, ImageDepth, TileDepth
        eNotForImageJ = 31,     ///< what does not suit, what to do
        eReadOnly = 32,         ///< reason of the system
        eRegionBeyond = 33      ///< geometry, "begins" or "ends", axis, where, axis, pixels of the axis
    };
    ORLIX_ENUMERATION(eORLIXImageIOMessage, eCannotOpen);
};

} // namespace orlix::image::io

namespace orlix {

template <>
struct ORLIXIMAGEIO_API MessageCatalogue<image::io::eORLIXImageIOMessage>
{
    using Exception = image::io::ORLIXImageIOException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
