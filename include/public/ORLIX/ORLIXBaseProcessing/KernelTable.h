// The kernels of one file, and how baseline code enters them into a class's selector.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"

#include <string>

namespace orlix::processor {

/// One kernel and the types that it works on, as ids of a data type identifier; `type2` is 0 for a single type, and
/// both are for a kernel that goes by none.
struct KernelRow
{
    unsigned char type1;
    unsigned char type2;
    KernelFunction function;
};

/// The rows of one kernel file. Constant-initialised there: a static initialiser built for an instruction set would run
/// on processors that lack it.
struct KernelTable
{
    eInstructionSet::domain set;
    const KernelRow* rows;
    unsigned long nbRows;
};

namespace details {

/// Enters the rows, in their order, where this processor has the set. What cannot be entered is logged at the trace
/// level and left out: a library with a partial table still loads.
ORLIXBASEPROCESSING_API void functionRegistration(AlgorithmFunctionSelector& selector, const KernelTable& table);
/// Takes out the kernels of a table whose code goes.
ORLIXBASEPROCESSING_API void unRegisterKernels(AlgorithmFunctionSelector& selector, const KernelTable& table) noexcept;

} // namespace details

} // namespace orlix::processor
