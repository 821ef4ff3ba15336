// Messages of ORLIXUtil.
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLog.h"

namespace orlix {

LibraryLog& MessageCatalogue<eORLIXUtilErrors>::log()
{
    return getORLIXUtilLog();
}

const std::vector<MessageText>& MessageCatalogue<eORLIXUtilErrors>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eORLIXUtilErrors::eUnknownMessage,
         "Message %d of catalogue %s is unknown to message manager %s: add it to the catalogue's texts"},
        {eORLIXUtilErrors::eWrongArguments,
         "Message %d of catalogue %s, \"%s\", can't be built from %d arguments: give as many as it has places (%s)"},
        {eORLIXUtilErrors::eMessageConflict,
         "Message %d of catalogue %s in message manager %s is \"%s\" already: give \"%s\" an id of its own"},
        {eORLIXUtilErrors::eNoCopySupport, "Objects of class %s can't be copied: make a new one instead"},
        {eORLIXUtilErrors::eUnknownClass,
         "Class %s is unknown to the object factory: check the name and load the library that the class is in"},
        {eORLIXUtilErrors::eClassAlreadyRegistered,
         "Class %s is registered with the object factory already: give each class a name of its own"},
        {eORLIXUtilErrors::eUnwritableFile,
         "File %s can't be written: %s. It is as it was before: check its folder, its permissions and the free space"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eORLIXUtilErrors> g_registration;

} // namespace

} // namespace orlix
