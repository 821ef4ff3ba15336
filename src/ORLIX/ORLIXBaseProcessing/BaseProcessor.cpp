#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::processor {

namespace {

ProcessingResult<bool> toResult(StepResult step)
{
    if (step.status == eStepStatus::eStepSuccess) {
        return true;
    }
    return ProcessingResult<bool>::failure(step.message);
}

} // namespace

BaseProcessor::~BaseProcessor() = default;

ProcessingResult<bool> BaseProcessor::init(const eProcessorRulePolicy& rulePolicy)
{
    ProcessingResult<bool> result =
        initDerived(m_attributes, m_outputInitializers, m_dispatchPolicy, m_rule, rulePolicy);
    m_bInitialised = result.getValue();
    return result;
}

std::vector<std::string> BaseProcessor::getAttributeNameColl() const
{
    std::vector<std::string> names;
    for (const boost::shared_ptr<BaseAttribute>& attribute : m_attributes) {
        names.push_back(attribute->getObjectName());
    }
    return names;
}

BaseAttribute& BaseProcessor::getAttribute(const std::string& name) const
{
    for (const boost::shared_ptr<BaseAttribute>& attribute : m_attributes) {
        if (attribute->getObjectName() == name) {
            return *attribute;
        }
    }
    raise<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eUnknownAttribute, getObjectName(), name);
}

void BaseProcessor::throwNotInitialised() const
{
    raise<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eProcessorNotInitialised, getObjectName());
}

void BaseProcessor::clearForReuse()
{
    for (const boost::shared_ptr<BaseAttribute>& attribute : m_attributes) {
        attribute->clear();
    }
    clearIntermediateData();
    clearProgressObserver();
    clearFinishObserver();
    forgetRun();
}

void BaseProcessor::clearInputData()
{
    for (const boost::shared_ptr<BaseAttribute>& attribute : m_attributes) {
        if (!attribute->isOutput()) {
            attribute->clear();
        }
    }
}

void BaseProcessor::clearOutputData()
{
    for (const boost::shared_ptr<BaseAttribute>& attribute : m_attributes) {
        if (attribute->isOutput()) {
            attribute->clear();
        }
    }
}

ProcessingResult<bool> BaseProcessor::runDerived()
{
    syncInputDataDerived();
    ProcessingResult<bool> result = initProcess();
    if (result) {
        result = process();
        endProcess();
    }
    syncOutputDataDerived();
    return result;
}

ProcessingResult<bool> BaseProcessor::checkAttribute(const BaseAttribute& attribute) const
{
    if (attribute.isNull()) {
        return ProcessingResult<bool>::failure(formatMessage<eProcessorMessage>(
            eProcessorMessage::eAttributeIsNull, getObjectName(), attribute.getObjectName()));
    }
    const bool bNeeded = !attribute.isSet() && !attribute.isOptional();
    if (bNeeded && !(attribute.isOutput() && makesOutput(attribute.getObjectName()))) {
        return ProcessingResult<bool>::failure(
            formatMessage<eProcessorMessage>(eProcessorMessage::eAttributeNotSet, getObjectName(),
                                             attribute.getObjectName(), attribute.getObjectName()));
    }
    return true;
}

ProcessingResult<bool> BaseProcessor::initProcess()
{
    checkInitialised();
    for (const boost::shared_ptr<BaseAttribute>& attribute : m_attributes) {
        if (!attribute->isHeld()) {
            if (ProcessingResult<bool> result = checkAttribute(*attribute); !result) {
                return result;
            }
        }
    }
    for (const auto& [name, initializer] : m_outputInitializers) {
        if (initializer->isOutputInitNeeded()) {
            if (ProcessingResult<bool> result = initializer->initOutput(); !result) {
                return result;
            }
        }
    }
    return m_rule ? m_rule->check() : true;
}

ProcessingResult<bool> BaseSyncProcessor::process()
{
    ProcessingResult<bool> result = toResult(preProcess());
    if (result) {
        result = mainProcess();
    }
    return result ? toResult(postProcess()) : result;
}

void executeSyncRun(const boost::shared_ptr<BaseProcessor>& processor)
{
    if (const ProcessingResult<bool> result = processor->run(core::eSynchroType::eSynchroSync); !result) {
        raiseFailure<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eRunFailed, result.getMessage());
    }
}

} // namespace orlix::processor
