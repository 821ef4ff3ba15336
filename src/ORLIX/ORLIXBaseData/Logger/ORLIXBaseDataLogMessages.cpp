// Messages of ORLIXBaseData.
#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLogMessages.h"

#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLog.h"
#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"

namespace orlix {

LibraryLog& MessageCatalogue<eORLIXBaseDataMessage>::log()
{
    return getORLIXBaseDataLog();
}

const std::vector<MessageText>& MessageCatalogue<eORLIXBaseDataMessage>::texts()
{
    using e = eORLIXBaseDataMessage;
    static const std::vector<MessageText> g_texts = {
        {e::eOtherClass, "Class %s can't take over the content of class %s: copy from an object of the same class"},
        {e::eDuplicatePlanIndex, "The collection has an entry at plan %s already: insert each plan once"},
        {e::ePlanIndexTooLarge, "Plan %s can't be counted in 64 bits: use smaller indices"},
        {e::eTooManyPlans, "%d x %d x %d plans (z, c, t) are more than a collection can hold: use smaller sizes"},
        {e::eNoEntry, "The collection has no entry %d, only %d: ask for one below its size"},
        {e::eOtherCount, "The archive has %d plans for %d items: it was changed by hand, write it anew"},
        {e::eIncompletePoint, "%d numbers are no whole number of points of %d coordinates each: give all coordinates"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eORLIXBaseDataMessage> g_registration;

} // namespace

} // namespace orlix
