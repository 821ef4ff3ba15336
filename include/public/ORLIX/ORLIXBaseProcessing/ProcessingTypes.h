// Results and small records that processors speak in.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <string>
#include <utility>

namespace orlix::processor {

struct eProviderStatus
{
    enum domain { eProviderReady = 0, eProviderNone = 1, eProviderFailed = 2 };
    ORLIX_ENUMERATION(eProviderStatus, eProviderNone);
};

/// What `retrieveProvider` says: the provider is set; there is nothing to dispatch; or the reason why neither holds.
struct [[nodiscard]] ProviderResult
{
    eProviderStatus status;
    ResultMessage message;

    static ProviderResult ready() { return {eProviderStatus::eProviderReady, {}}; }
    static ProviderResult none() { return {eProviderStatus::eProviderNone, {}}; }
    static ProviderResult failed(NumberedText message)
    {
        return {eProviderStatus::eProviderFailed, std::move(message)};
    }
};

struct eStepStatus
{
    enum domain { eStepSuccess = 0, eStepFailed = 1 };
    ORLIX_ENUMERATION(eStepStatus, eStepSuccess);
};

/// What `preProcess` and `postProcess` say.
struct [[nodiscard]] StepResult
{
    eStepStatus status;
    ResultMessage message;

    static StepResult success() { return {eStepStatus::eStepSuccess, {}}; }
    static StepResult failed(NumberedText message) { return {eStepStatus::eStepFailed, std::move(message)}; }
};

/// Does `BaseProcessor::init` build the rule?
struct eProcessorRulePolicy
{
    enum domain { eRulePolicyCheck = 0, eRulePolicySkip = 1 };
    ORLIX_ENUMERATION(eProcessorRulePolicy, eRulePolicyCheck);
};

struct eProcessorType
{
    enum domain { eSyncProcessor = 0, eAsyncProcessor = 1 };
    ORLIX_ENUMERATION(eProcessorType, eSyncProcessor);
};

/// What a kernel gets with each call. Plain fields: kernels are built with the flags of their instruction set and must
/// not carry a function that code elsewhere could come to share.
struct ProcessingInfo
{
    unsigned long nbElements;   ///< of this call
    unsigned long nbBlocks;     ///< in which the strip is handed out; 1: the whole strip at once
    unsigned long currentLine;  ///< in the strip
    unsigned long firstElement; ///< x at which a run of a line starts; 0 for a whole strip
};

} // namespace orlix::processor
