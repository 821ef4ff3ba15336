// Messages of ORLIXBaseProcessing.
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"
#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"

namespace orlix {

LibraryLog& MessageCatalogue<processor::eProcessorMessage>::log()
{
    return processor::getORLIXBaseProcessingLog();
}

const std::vector<MessageText>& MessageCatalogue<processor::eProcessorMessage>::texts()
{
    using Message = processor::eProcessorMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eRunFailed, "%s"},
        {Message::eAttributeNotSet, "%s: attribute %s has not been set: set %s before the run"},
        {Message::eAttributeIsNull, "%s: attribute %s holds a null pointer: give it an object that exists"},
        {Message::eSplitCountsDiffer,
         "%s: all splits must have the same number of elements, but %s has %d and %s has %d"},
        {Message::eNoSplits,
         "%s: there is no split that tells the number of elements: add one for an attribute that is cut"},
        {Message::eWrongProcessor,
         "The split for attribute %s does not feed processors of class %s: make it for that class"},
        {Message::eNoKernel, "%s has no kernel for %s: convert the data first"},
        {Message::eBlockCountsDiffer,
         "%s: the data of all attributes must be cut alike, but one has %d blocks and another %d"},
        {Message::eUnknownProcessor,
         "Processor %s is unknown to the factory: check the name and load the library that it is in"},
        {Message::eUnknownAttribute, "%s has no attribute %s"},
        {Message::eProcessorRegisteredTwice,
         "Processor %s is registered with the factory already: give each processor a name of its own"},
        {Message::eNullSplitInput, "The split for attribute %s was given a null pointer: give it data that exists"},
        {Message::eNullProcessor,
         "There is no processor to read an output from: give the %s that the asynchronous call returned"},
        {Message::eTooManyElements,
         "%s: %d elements are more than the %d that can be numbered: give it the work in parts"},
        {Message::eProcessorNotInitialised,
         "Processor %s has not been initialised: call init before its attributes are used"}};
    return g_texts;
}

LibraryLog& MessageCatalogue<processor::eAlgorithmFunctionMessage>::log()
{
    return processor::getORLIXBaseProcessingLog();
}

const std::vector<MessageText>& MessageCatalogue<processor::eAlgorithmFunctionMessage>::texts()
{
    using Message = processor::eAlgorithmFunctionMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eFunctionRegisteredTwice, "There is a kernel for %s with the figure of merit %d already"},
        {Message::eFunctionIsNull, "The kernel for %s is a null pointer"},
        {Message::eCudaFunctionRegisteredTwice, "There is a launcher for %s already"},
        {Message::eRegistrationFailed, "Some kernels could not be registered:\n%s"}};
    return g_texts;
}

LibraryLog& MessageCatalogue<processor::eProcessingRuleMessage>::log()
{
    return processor::getORLIXBaseProcessingLog();
}

const std::vector<MessageText>& MessageCatalogue<processor::eProcessingRuleMessage>::texts()
{
    using Message = processor::eProcessingRuleMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eAttributeGone,
         "An attribute of the rule no longer exists: keep the processor that the rule was made for"},
        {Message::eOptionalNotSet, "Optional attribute %s has to be set here"},
        {Message::eComparisonFailed, "%s is %s, but has to be %s %s, which is %s"},
        {Message::eCollSizeFailed, "%s has %d entries, but their number has to be %s that of %s, which has %d"},
        {Message::eAttributeEmpty, "%s holds nothing: set it before the run"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<processor::eProcessorMessage> g_processorMessages;
const CatalogueRegistration<processor::eAlgorithmFunctionMessage> g_algorithmFunctionMessages;
const CatalogueRegistration<processor::eProcessingRuleMessage> g_processingRuleMessages;

} // namespace

} // namespace orlix
