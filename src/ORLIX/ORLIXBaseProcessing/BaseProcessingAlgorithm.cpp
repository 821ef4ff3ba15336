#include "ORLIX/ORLIXBaseProcessing/BaseProcessingAlgorithm.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"

namespace orlix::processor {

void BaseProcessingAlgorithm::getNoParseInfo(unsigned long& nbElements, unsigned long& currentLine,
                                             unsigned long& firstElement) const
{
    nbElements = ~0UL;
    currentLine = 0;
    firstElement = 0;
}

ProcessingResult<bool> BaseProcessingAlgorithm::succeed()
{
    return true;
}

ProcessingResult<bool> BaseProcessingAlgorithm::mainProcess()
{
    struct ParserCleaner
    {
        BaseProcessingAlgorithm& algorithm;
        ~ParserCleaner() { algorithm.clearDataParserColl(); }
    } cleaner{*this};
    if (ProcessingResult<bool> result = initDataParserColl(m_parsers); !result) {
        return result;
    }
    if (StepResult step = preProcess(); step.status != eStepStatus::eStepSuccess) {
        return ProcessingResult<bool>::failure(step.message);
    }
    DataTypeIdentifierColl types;
    if (ProcessingResult<bool> result = getDataTypeIdColl(types); !result) {
        return result;
    }
    const KernelFunction kernel = selectKernel(types);
    if (kernel == nullptr) {
        return failNoKernel(types);
    }
    if (ProcessingResult<bool> result = runKernel(kernel); !result) {
        return result;
    }
    if (StepResult step = postProcess(); step.status != eStepStatus::eStepSuccess) {
        return ProcessingResult<bool>::failure(step.message);
    }
    return true;
}

ProcessingResult<bool> BaseProcessingAlgorithm::failNoKernel(const DataTypeIdentifierColl& types) const
{
    return ProcessingResult<bool>::failure(
        formatMessage<eProcessorMessage>(eProcessorMessage::eNoKernel, getObjectName(), types.toString()));
}

ProcessingResult<bool> BaseProcessingAlgorithm::runKernel(KernelFunction kernel)
{
    ProcessingInfo info{0, 1, 0, 0};
    if (m_parsers.empty()) {
        getNoParseInfo(info.nbElements, info.currentLine, info.firstElement);
        return (this->*kernel)(info);
    }
    const unsigned long nbBlocks = m_parsers.front()->getNbBlocks();
    for (const boost::shared_ptr<BaseDataParser>& parser : m_parsers) {
        if (parser->getNbBlocks() != nbBlocks) {
            return ProcessingResult<bool>::failure(formatMessage<eProcessorMessage>(
                eProcessorMessage::eBlockCountsDiffer, getObjectName(), nbBlocks, parser->getNbBlocks()));
        }
    }
    for (unsigned long block = 0; block < nbBlocks; ++block) {
        for (auto parser = m_parsers.rbegin(); parser != m_parsers.rend(); ++parser) {
            (*parser)->startBlock(block, info); // the first parser describes the block last
        }
        takeBlocks();
        if (ProcessingResult<bool> result = (this->*kernel)(info); !result) {
            return result;
        }
        for (const boost::shared_ptr<BaseDataParser>& parser : m_parsers) {
            parser->endBlock();
        }
    }
    return true;
}

} // namespace orlix::processor
