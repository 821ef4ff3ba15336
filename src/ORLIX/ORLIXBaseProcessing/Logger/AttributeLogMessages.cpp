// Messages of attributes.
#include "ORLIX/ORLIXBaseProcessing/Logger/AttributeLogMessages.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"
#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"

namespace orlix {

using processor::eAttributeMessage;

LibraryLog& MessageCatalogue<eAttributeMessage>::log()
{
    return processor::getORLIXBaseProcessingLog();
}

const std::vector<MessageText>& MessageCatalogue<eAttributeMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eAttributeMessage::eTakesNoText, "%s (%s) can't be given as text: set it from a program"},
        {eAttributeMessage::eBadText, "%s: expected %s, found \"%s\""},
        {eAttributeMessage::eBadItem, "%s: %s"},
        {eAttributeMessage::eHoldsNoItem, "%s (%s) holds no data item: set it by its own class"},
        {eAttributeMessage::eOtherDirection, "%s is %s: give its item with %s"},
        {eAttributeMessage::eNoItemClass,
         "%s holds a class that isn't derived from BaseDataItem: set it by its own class, with init"},
        {eAttributeMessage::eOtherItemClass,
         "%s holds an object of class %s, the item is one of class %s: give one of the attribute's class"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eAttributeMessage> g_registration;

} // namespace

} // namespace orlix
