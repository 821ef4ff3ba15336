// Who runs an operator, and with which kernels, out of the bytes of a fuzz input.
#pragma once

#include "ByteReader.h"
#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

#include <vector>

namespace orlix::fuzz {

/// Forces a set on all kernels and sets who runs elements, for this input. Returns the set.
inline eInstructionSet setUpRun(ByteReader& bytes)
{
    static const std::vector<boost::shared_ptr<core::BaseExecutor>> executors = {
        core::makeTbbExecutor(1), core::makeShuffledExecutor(1), core::makeShuffledExecutor(2),
        core::makeTbbExecutor(3), core::makePlainThreadExecutor(2)};
    const std::vector<eInstructionSet>& sets = core::getAvailableInstructionSets();
    const eInstructionSet set = sets[bytes.below(sets.size())];
    const unsigned long executor = bytes.below(64); // to wait for other threads takes longer than most inputs
    core::setExecutor(executor < 60 ? executors[executor % 3] : executors[3 + executor % 2]);
    processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets({set});
    return set;
}

/// Does the call end with an exception of the library's own?
template <class TCall>
bool isRefused(const TCall& call)
{
    try {
        call();
    } catch (const BaseException&) {
        return true;
    }
    return false;
}

} // namespace orlix::fuzz
