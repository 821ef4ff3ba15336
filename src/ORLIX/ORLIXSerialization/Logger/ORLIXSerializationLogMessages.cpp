// Messages of ORLIXSerialization.
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"

#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLog.h"
#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"

namespace orlix {

LibraryLog& MessageCatalogue<eORLIXSerializationMessage>::log()
{
    return getORLIXSerializationLog();
}

const std::vector<MessageText>& MessageCatalogue<eORLIXSerializationMessage>::texts()
{
    using e = eORLIXSerializationMessage;
    static const std::vector<MessageText> g_texts = {
        {e::eMissingEntry, "The archive ends where %s \"%s\" is expected in section \"%s\": it is cut short, or was "
                           "written by something else than what reads it"},
        {e::eOtherEntry, "The archive has %s \"%s\" where %s \"%s\" is expected in section \"%s\": it was written by "
                         "something else than what reads it"},
        {e::eBadValue, "The archive has \"%s\" as value of \"%s\" in section \"%s\", which is no %s: give it one that "
                       "its type can hold"},
        {e::eUnreadEntry, "The archive has %s \"%s\" where section \"%s\" should end: it was written by something else "
                          "than what reads it"},
        {e::eNoOpenSection, "No section of the archive is open that could be closed: close each section once"},
        {e::eTooDeep, "Section \"%s\" of the archive lies deeper than the %d sections that are allowed: nest less"},
        {e::eTooLarge, "The archive has more than the %d bytes that are allowed: divide it into several"},
        {e::eNoArchive, "This is no archive, or a damaged one: %s at byte %d. Write the archive anew"},
        {e::eNewerFormat, "The archive has format %s, and %d is the newest that is known: read it with a newer "
                          "version of the library"},
        {e::eWrongChecksum, "The archive has checksum %s, and its content gives %x: it was damaged or changed by hand. "
                            "Write it anew, or take the attribute away if the change is wanted"},
        {e::eUnreadableFile, "File %s can't be read: %s. Check its name and permissions"},
        {e::eUnreadableStream, "The archive can't be read from its stream: check that the stream is open and good"},
        {e::eUnwritableStream, "The archive can't be written to its stream: check that the stream is open and has "
                               "room"},
        {e::eIncompleteArchive, "The archive is incomplete, since section \"%s\" was not finished: finish it before "
                                "saving, and don't save what a failure has interrupted"},
        {e::eUnknownClassVersion, "The archive has no version of class %s yet: write or read the class first"},
        {e::eClassVersionConflict, "Class %s can't have version %d in this archive, since it has version %d already: "
                                   "give a class one version"},
        {e::eNewerClassVersion, "The archive has class %s in a version newer than %d, the newest that is known: read "
                                "it with a newer version of the library"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eORLIXSerializationMessage> g_registration;

} // namespace

} // namespace orlix
