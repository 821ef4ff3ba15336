// A processor: attributes, a rule, initializers of outputs, and a run.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"
#include "ORLIX/ORLIXBaseProcessing/BaseOutputInitializer.h"
#include "ORLIX/ORLIXBaseProcessing/BaseRule.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessingTypes.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchPolicy.h"
#include "ORLIX/ORLIXCore/BaseComplexAction.h"

#include <map>
#include <vector>

namespace orlix::processor {

using AttributeVector = std::vector<boost::shared_ptr<BaseAttribute>>;
using OutputInitializerMap = std::map<std::string, boost::shared_ptr<BaseOutputInitializer>>;

/// A run goes: attributes are looked at (an unset or null mandatory attribute ends it), initializers make unset
/// outputs, the rule is checked, then the steps of the kind of processor, then `clearIntermediateData`.
class ORLIXBASEPROCESSING_API BaseProcessor : public core::BaseComplexAction
{
public:
    ~BaseProcessor() override;

    /// Calls `initDerived` and marks the processor initialised; attributes exist from then on.
    ProcessingResult<bool> init(const eProcessorRulePolicy& rulePolicy);
    bool isInitialised() const { return m_bInitialised; }

    const AttributeVector& getAttributeColl() const { return m_attributes; }
    std::vector<std::string> getAttributeNameColl() const;
    /// Throws ORLIXBaseProcessingException where the processor has no attribute of that name.
    BaseAttribute& getAttribute(const std::string& name) const;
    /// Does a run make the output of this name where nobody gave it?
    bool makesOutput(const std::string& name) const { return m_outputInitializers.contains(name); }

    virtual const std::string& getObjectName() const = 0;
    virtual const std::string& getToolTip() const = 0;
    virtual eProcessorType getProcessorType() const = 0;

    /// Throws message 33 with the processor's name where `init` has not been called.
    void checkInitialised() const
    {
        if (!m_bInitialised) {
            throwNotInitialised();
        }
    }
    /// Makes the processor as it was after `init`, for another use by the framework.
    void clearForReuse();

    void clearInputData() override;
    void clearOutputData() override;

protected:
    ProcessingResult<bool> runDerived() override;
    void globalCleanDerived() override { clearIntermediateData(); }

    virtual ProcessingResult<bool> initDerived(AttributeVector& attributes, OutputInitializerMap& outputInitializers,
                                               ProcessorDispatchPolicy& dispatchPolicy, RulePtr& rule,
                                               const eProcessorRulePolicy& rulePolicy) = 0;
    /// Looks at the attributes, makes outputs, checks the rule.
    virtual ProcessingResult<bool> initProcess();
    /// The steps between `initProcess` and `endProcess`.
    virtual ProcessingResult<bool> process() = 0;
    virtual void endProcess() {}

    virtual StepResult preProcess() { return StepResult::success(); }
    virtual StepResult postProcess() { return StepResult::success(); }

    const ProcessorDispatchPolicy& getDispatchPolicy() const { return m_dispatchPolicy; }
    /// Is the rule checked in every run? Not where `init` was told to skip it.
    bool hasRule() const { return m_rule != nullptr; }

private:
    [[noreturn]] void throwNotInitialised() const;
    ProcessingResult<bool> checkAttribute(const BaseAttribute& attribute) const;

    bool m_bInitialised = false;
    AttributeVector m_attributes;
    OutputInitializerMap m_outputInitializers;
    ProcessorDispatchPolicy m_dispatchPolicy;
    RulePtr m_rule;
};

/// A processor that does its work itself: `preProcess`, `mainProcess`, `postProcess`.
class ORLIXBASEPROCESSING_API BaseSyncProcessor : public BaseProcessor
{
public:
    eProcessorType getProcessorType() const override { return eProcessorType::eSyncProcessor; }

protected:
    ProcessingResult<bool> process() override;
    virtual ProcessingResult<bool> mainProcess() = 0;
};

/// Runs `processor` to its end. A failed run throws ORLIXBaseProcessingException with the failed step's message; an
/// exception out of any level arrives unchanged.
ORLIXBASEPROCESSING_API void executeSyncRun(const boost::shared_ptr<BaseProcessor>& processor);

} // namespace orlix::processor
