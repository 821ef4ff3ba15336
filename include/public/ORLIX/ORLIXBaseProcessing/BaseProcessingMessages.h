// Texts, exception and logger of ORLIXBaseProcessing.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::processor {

class ORLIXBASEPROCESSING_API ORLIXBaseProcessingException : public BaseException
{
public:
    using BaseException::BaseException;
};

struct eProcessorMessage
{
    enum domain {
        eRunFailed = 0,             ///< reason
        eAttributeNotSet = 1,       ///< processor, attribute
        eAttributeIsNull = 2,       ///< processor, attribute
        eSplitCountsDiffer = 3,     ///< processor, attribute, count, attribute, count
        eNoSplits = 4,              ///< processor
        eWrongProcessor = 5,        ///< attribute, processor
        eNoKernel = 6,              ///< processor, element types
        eBlockCountsDiffer = 7,     ///< processor, count, count
        eUnknownProcessor = 8,      ///< name
        eUnknownAttribute = 9,      ///< processor, attribute
        eProcessorNotInitialised = 33 ///< processor
    };
    ORLIX_ENUMERATION(eProcessorMessage, eRunFailed);
};

struct eAlgorithmFunctionMessage
{
    enum domain {
        eFunctionRegisteredTwice = 0, ///< element types, instruction set
        eFunctionWithoutTypes = 1,
        eFunctionIsNull = 2, ///< element types
        eRegistrationFailed = 12 ///< all reasons
    };
    ORLIX_ENUMERATION(eAlgorithmFunctionMessage, eFunctionRegisteredTwice);
};

/// Texts of rules that failed.
struct eProcessingRuleMessage
{
    enum domain {
        eAttributeGone = 0,
        eOptionalNotSet = 1,    ///< attribute
        eComparisonFailed = 2,  ///< attribute, value, required relation, attribute, value
        eCollSizeFailed = 3     ///< attribute, size, required relation, attribute, size
    };
    ORLIX_ENUMERATION(eProcessingRuleMessage, eAttributeGone);
};

ORLIXBASEPROCESSING_API log4cplus::Logger getORLIXBaseProcessingLogger();
ORLIXBASEPROCESSING_API LogMessageManager& getORLIXBaseProcessingLogMessageManager();

} // namespace orlix::processor
