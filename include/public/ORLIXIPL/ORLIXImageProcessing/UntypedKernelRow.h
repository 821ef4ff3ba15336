// Kernel tables of classes whose kernels go by no element type: a class that is `TypedBy<>`.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelTable.h"

namespace orlix::imaproc {

/// A kernel for whatever there is: `TLevel::genericProcessFunction<ISA>`. A class has one for each instruction set.
template <class TLevel, eInstructionSet::domain ISA>
constexpr processor::KernelRow untypedKernelRow()
{
    return {0, 0, static_cast<processor::KernelFunction>(&TLevel::template genericProcessFunction<ISA>)};
}

} // namespace orlix::imaproc

/// The row set of such a table, for `ORLIX_KERNEL_TABLE`.
#define ORLIX_ROWS_Untyped(level, ISA) untypedKernelRow<level, ISA>()
