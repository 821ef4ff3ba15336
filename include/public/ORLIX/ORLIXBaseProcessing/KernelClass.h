// What is static per level-3 class: its kernel table and its forced instruction sets.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"

#include <string>

namespace orlix::processor {

struct KernelClass
{
    AlgorithmFunctionSelector selector;
    InstructionSetsIdentifier forced;
};

/// The one object of the class that `typeid` names so, made on first use and kept until the process ends. It lives here and
/// not in a static of the class's template, since every library that includes the class would have a static of its own.
/// May be called from any thread.
ORLIXBASEPROCESSING_API KernelClass& accessKernelClass(const std::string& typeName);

} // namespace orlix::processor
