// Messages of ORLIXHardware.
#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLogMessages.h"

#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLog.h"
#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"

namespace orlix {

LibraryLog& MessageCatalogue<hard::eORLIXHardwareMessage>::log()
{
    return hard::getORLIXHardwareLog();
}

const std::vector<MessageText>& MessageCatalogue<hard::eORLIXHardwareMessage>::texts()
{
    using Message = hard::eORLIXHardwareMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eNoCuda, "this ORLIX has no CUDA code: install one that was built with a CUDA toolkit"},
        {Message::eNoDevice, "the CUDA driver knows no device: check that one is there and that this user may use it"},
        {Message::eNoSuchDevice, "There is no CUDA device %d: they count from 0, and there are %d"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<hard::eORLIXHardwareMessage> g_registration;

} // namespace

} // namespace orlix
