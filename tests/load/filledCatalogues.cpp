// Asks, before anything else, for every text of every catalogue, and for statics of a class from two libraries.
#include "Check.h"

#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLogMessages.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/AttributeLogMessages.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLogMessages.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"
#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace {

using namespace orlix;
using orlix::test::check;

template <class TEnum>
void checkFilled(const char* managerName)
{
    const LogMessageManager& manager = LogMessageManager::getInstance(managerName);
    const std::string key = typeid(typename TEnum::domain).name();
    check(!MessageCatalogue<TEnum>::texts().empty(), key + " has no texts");
    for (const MessageText& message : MessageCatalogue<TEnum>::texts()) {
        check(manager.hasMessage(key, message.id) && manager.getMessage(key, message.id) == message.text,
              "message " + std::to_string(message.id) + " of " + key + " in manager " + managerName);
    }
}

/// What the class's own library gives out, and what this program's copy of its templates does.
void checkStatics()
{
    using Processor = imaproc::util::CopyImgLvl1;
    const auto processor = processor::ProcessorFactory::getInstance().createProcessor(Processor::getTypeName());
    check(&processor->getClassName() == &Processor::getTypeName(), "two type names of one class");
    check(&processor->getObjectName() == &Processor::getObjectNameStr(), "two object names of one class");
    check(&processor->getToolTip() == &Processor::getToolTipStr(), "two tool tips of one class");
}

} // namespace

int main()
{
    checkFilled<eORLIXUtilErrors>("ORLIXUtil");
    checkFilled<eORLIXSerializationMessage>("ORLIXSerialization");
    checkFilled<eORLIXBaseDataMessage>("ORLIXBaseData");
    checkFilled<hard::eORLIXHardwareMessage>("ORLIXHardware");
    checkFilled<core::eORLIXCoreMessage>("ORLIXCore");
    checkFilled<processor::eAttributeMessage>("ORLIXBaseProcessing");
    checkFilled<processor::eProcessorMessage>("ORLIXBaseProcessing");
    checkFilled<processor::eAlgorithmFunctionMessage>("ORLIXBaseProcessing");
    checkFilled<processor::eProcessingRuleMessage>("ORLIXBaseProcessing");
    checkFilled<image::eORLIXImageMessage>("ORLIXImage");
    checkFilled<image::tools::eORLIXBaseImageToolsMessage>("ORLIXBaseImageTools");
    checkFilled<imaproc::eImageRuleMessage>("ORLIXImageProcessing");
    checkFilled<imaproc::eImageSplitMessage>("ORLIXImageProcessing");
    checkFilled<imaproc::util::eORLIXIPLUtilityMessage>("ORLIXIPLUtility");
    checkFilled<imaproc::util::eOutputInitializerMessage>("ORLIXIPLUtility");
    checkFilled<imaproc::util::eRuleMessage>("ORLIXIPLUtility");
    checkFilled<imaproc::util::eProcessorMessage>("ORLIXIPLUtility");
    checkFilled<image::io::eORLIXImageIOMessage>("ORLIXImageIO");
    checkStatics();
    return orlix::test::g_nbFailures == 0 ? 0 : 1;
}
