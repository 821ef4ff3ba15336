// Messages of ORLIXImageIO.
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLog.h"

namespace orlix {

using image::io::eORLIXImageIOMessage;

LibraryLog& MessageCatalogue<eORLIXImageIOMessage>::log()
{
    return image::io::getORLIXImageIOLog();
}

const std::vector<MessageText>& MessageCatalogue<eORLIXImageIOMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eORLIXImageIOMessage::eCannotOpen, "%s: can't be opened (%s): check the path and its permissions"},
        {eORLIXImageIOMessage::eNotARegularFile, "%s: must be a regular file, but is %s: give the path of a file"},
        {eORLIXImageIOMessage::eReadFailed, "%s: can't be read (%s): check the disk that it lies on"},
        {eORLIXImageIOMessage::eUnknownContent,
         "%s: must be a TIFF or PNG file, but its first bytes are neither's (%s): convert it to one of them"},
        {eORLIXImageIOMessage::eUnknownEnding,
         "%s: the ending \"%s\" names no format that can be written: use .tif, .tiff or .png"},
        {eORLIXImageIOMessage::eDamagedTiff,
         "%s: page %d can't be read (%s): the file is damaged or cut short, get a whole copy of it"},
        {eORLIXImageIOMessage::eUnsupportedTiff,
         "%s: page %d holds %s, which is not supported: convert it to grey or RGB pixels of 1, 8, 16 or 32 bits"},
        {eORLIXImageIOMessage::ePagesDiffer,
         "%s: the pages of an image must be alike, but page %d has %s and page %d has %s: split the file"},
        {eORLIXImageIOMessage::eTooManyElements,
         "%s: claims %s elements, more than the limit of %d: raise the limit if the file can be trusted"},
        {eORLIXImageIOMessage::eTooManyBytes,
         "%s: claims %s elements and needs %s bytes of memory, more than the limit of %d: raise the limit if the file "
         "can be trusted"},
        {eORLIXImageIOMessage::eImplausibleSize,
         "%s: page %d claims %s bytes of pixels, for which the file must have at least %s bytes, but it has %d: it is "
         "damaged or cut short, get a whole copy of it"},
        {eORLIXImageIOMessage::eBadDescription, "%s: its %s description is wrong: %s; remove or mend the description"},
        {eORLIXImageIOMessage::eOutsideFile,
         "%s: its OME-XML description puts pixels into another file, %s, which is not read (%s): put all files of the "
         "set, with the names that the description has, into one folder, or join them to one file"},
        {eORLIXImageIOMessage::eMissingPlan,
         "%s: its OME-XML description names no page for the plan z=%d, c=%d, t=%d: mend the description"},
        {eORLIXImageIOMessage::eDamagedPng,
         "%s: can't be read (%s): the file is damaged or cut short, get a whole copy of it"},
        {eORLIXImageIOMessage::eNoMemory,
         "%s: there is not enough memory for its pixels (%s): free some memory or make the image smaller"},
        {eORLIXImageIOMessage::eReadingStopped, "%s: reading was stopped before its end, as requested"},
        {eORLIXImageIOMessage::eWritingStopped,
         "%s: writing was stopped before its end, as requested; what was there before is unchanged"},
        {eORLIXImageIOMessage::eNullImage, "%s: there is no image to write: give one that is not null"},
        {eORLIXImageIOMessage::eEmptyImage,
         "%s: an image without pixels can't be written, and this one is %s: give one whose five sizes are above 0"},
        {eORLIXImageIOMessage::eSeveralTypes, "%s: a file holds elements of one type, but the time steps of the image "
                                              "differ (%s): convert them to one type"},
        {eORLIXImageIOMessage::eNoHostPixels,
         "%s: the image (%s) is on a GPU, but has to be in the memory of the host: bring it there with toHost first"},
        {eORLIXImageIOMessage::eUnsuitableForPng,
         "%s: PNG holds one plan of 1 to 4 channels of UInt8 or UInt16, or one of Binary, with sides below 2^31, but "
         "the image is %s: convert it or write TIFF"},
        {eORLIXImageIOMessage::eUnsuitableForRgb,
         "%s: pixels of red, green and blue samples need 3 or 4 channels of a type other than Binary, but the image is "
         "%s: write its channels as pages"},
        {eORLIXImageIOMessage::eNoCompression,
         "%s: the compression %s is not part of the installed libtiff: choose another one"},
        {eORLIXImageIOMessage::eBadTileSize,
         "%s: the side of a tile must be a multiple of 16 from 16 to 65520, but is %d: choose such a size"},
        {eORLIXImageIOMessage::eTooLongForTiff,
         "%s: TIFF holds sides below 2^31 and less than 2^31 pages, but the image is %s: cut it into parts"},
        {eORLIXImageIOMessage::eCannotCreate,
         "%s: no new file can be made in the folder %s (%s): check that it exists and may be written to"},
        {eORLIXImageIOMessage::eWriteFailed,
         "%s: can't be written (%s); what was there before is unchanged: make room or choose another folder"},
        {eORLIXImageIOMessage::eCannotReplace,
         "%s: the finished file can't take its place (%s): check the permissions of the file and its folder"},
        {eORLIXImageIOMessage::eVolumePage,
         "%s: page %d holds a volume (ImageDepth %d, TileDepth %d), of which libtiff reads the first plan alone: write "
         "each plan as a page of its own"},
        {eORLIXImageIOMessage::eNotForImageJ, "%s: ImageJ can't read %s: %s"},
        {eORLIXImageIOMessage::eReadOnly,
         "%s: must not be written to (%s): change its permissions or choose another name"},
        {eORLIXImageIOMessage::eRegionBeyond,
         "%s: the image is %s, but the region %s at %s = %s: let it lie in the image, whose %s has %d"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eORLIXImageIOMessage> g_registration;

} // namespace

} // namespace orlix
