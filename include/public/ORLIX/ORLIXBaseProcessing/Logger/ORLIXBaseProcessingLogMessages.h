// Messages of ORLIXBaseProcessing.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::processor {

/// Processors and dispatchers.
struct eProcessorMessage
{
    enum domain {
        eRunFailed = 0,                 ///< reason
        eAttributeNotSet = 1,           ///< processor, attribute, attribute
        eAttributeIsNull = 2,           ///< processor, attribute
        eSplitCountsDiffer = 3,         ///< dispatcher, attribute, count, attribute, count
        eNoSplits = 4,                  ///< dispatcher
        eWrongProcessor = 5,            ///< attribute, processor
        eNoKernel = 6,                  ///< processor, element types
        eBlockCountsDiffer = 7,         ///< processor, count, count
        eUnknownProcessor = 8,          ///< name
        eUnknownAttribute = 9,          ///< processor, attribute
        eProcessorRegisteredTwice = 10, ///< name
        eNullSplitInput = 11,           ///< attribute
        eNullProcessor = 12,            ///< processor
        eTooManyElements = 13,          ///< dispatcher, elements, most elements
        eProcessorNotInitialised = 33   ///< processor
    };
    ORLIX_ENUMERATION(eProcessorMessage, eRunFailed);
};

/// Kernel tables.
struct eAlgorithmFunctionMessage
{
    enum domain {
        eFunctionRegisteredTwice = 0,     ///< element types, figure
        eFunctionIsNull = 1,              ///< element types
        eCudaFunctionRegisteredTwice = 2, ///< element types
        eRegistrationFailed = 12          ///< all reasons
    };
    ORLIX_ENUMERATION(eAlgorithmFunctionMessage, eFunctionRegisteredTwice);
};

/// Rules that failed.
struct eProcessingRuleMessage
{
    enum domain {
        eAttributeGone = 0,
        eOptionalNotSet = 1,   ///< attribute
        eComparisonFailed = 2, ///< attribute, value, relation, attribute, value
        eCollSizeFailed = 3,   ///< attribute, size, relation, attribute, size
        eAttributeEmpty = 4    ///< attribute
    };
    ORLIX_ENUMERATION(eProcessingRuleMessage, eAttributeGone);
};

} // namespace orlix::processor

namespace orlix {

template <>
struct ORLIXBASEPROCESSING_API MessageCatalogue<processor::eProcessorMessage>
{
    using Exception = processor::ORLIXBaseProcessingException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

template <>
struct ORLIXBASEPROCESSING_API MessageCatalogue<processor::eAlgorithmFunctionMessage>
{
    using Exception = processor::ORLIXBaseProcessingException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

template <>
struct ORLIXBASEPROCESSING_API MessageCatalogue<processor::eProcessingRuleMessage>
{
    using Exception = processor::ORLIXBaseProcessingException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
