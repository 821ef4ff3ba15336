// What is static per processor class: names, version and dispatch policy; for level 3 the kernel table as well.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchPolicy.h"

#include <mutex>
#include <optional>
#include <string>
#include <typeinfo>

namespace orlix::processor {

/// Each value is made on first use, under the mutex that guards it.
struct ClassStatics
{
    std::mutex typeNameMutex;
    std::mutex toolTipMutex; ///< of the object name too
    std::mutex versionMutex;
    std::mutex dispatchPolicyMutex;
    std::mutex forcedInstructionSetsMutex;
    std::optional<std::string> typeName;
    std::optional<std::string> objectName;
    std::optional<std::string> toolTip;
    std::optional<unsigned int> version;
    std::optional<ProcessorDispatchPolicy> dispatchPolicy;
    AlgorithmFunctionSelector functionSelector;
    InstructionSetsIdentifier forcedInstructionSets;
};

/// The one object of a class, made on first use and kept until this library goes. It lives here and not in statics of
/// the class's templates, since every library that includes the class would have statics of its own. May be called from
/// any thread.
ORLIXBASEPROCESSING_API ClassStatics& accessClassStatics(const std::type_info& type);

namespace details {

/// What stands for a class in maps that outlive its library. Classes of unnamed namespaces share their names with those
/// of other files, and are told apart.
std::string makeClassKey(const std::type_info& type);

} // namespace details

} // namespace orlix::processor
