// What level-3 classes have beyond the scaffold of every processor: the kernel table and the forced instruction sets.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessingAlgorithm.h"
#include "ORLIX/ORLIXBaseProcessing/KernelTable.h"
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"

namespace orlix::processor {

template <class TDerived, class TLibrary, class... TAttributes>
class KernelScaffold : public Scaffold<TDerived, BaseProcessingAlgorithm, TLibrary, TAttributes...>
{
public:
    /// The level above gives the outputs.
    void initOutputInitializers(OutputInitializerMap&) const {}

    /// The kernel table of the class, made on first use. Filled while the library loads.
    static AlgorithmFunctionSelector& retrieveFunctionSelector() { return Base::accessStatics().functionSelector; }
    static AlgorithmFunctionSelector& accessFunctionSelector() { return retrieveFunctionSelector(); }
    const AlgorithmFunctionSelector& getFunctionSelector() const override { return retrieveFunctionSelector(); }

    /// The sets that the class is held to; empty by default. Change it while nothing of the class runs.
    static InstructionSetsIdentifier& retrieveForcedInstructionSets()
    {
        const std::lock_guard<std::mutex> lock(ForcedInstructionSetsMutex());
        return Base::accessStatics().forcedInstructionSets;
    }
    static InstructionSetsIdentifier& accessForcedInstructionSets() { return retrieveForcedInstructionSets(); }
    /// Every strip asks, so the lock is taken the first time alone.
    const InstructionSetsIdentifier& getForcedInstructionSets() const override
    {
        static const InstructionSetsIdentifier& g_forced = retrieveForcedInstructionSets();
        return g_forced;
    }
    static void forceInstructionSets(const InstructionSetsIdentifier& sets) { retrieveForcedInstructionSets() = sets; }
    static void releaseForcedInstructionSets() { retrieveForcedInstructionSets().clear(); }

private:
    using Base = Scaffold<TDerived, BaseProcessingAlgorithm, TLibrary, TAttributes...>;

    static std::mutex& ForcedInstructionSetsMutex() { return Base::accessStatics().forcedInstructionSetsMutex; }
};

} // namespace orlix::processor
