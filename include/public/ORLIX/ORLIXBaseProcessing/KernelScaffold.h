// What level-3 classes have beyond the scaffold of every processor: the kernel table and the forced instruction sets.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessingAlgorithm.h"
#include "ORLIX/ORLIXBaseProcessing/KernelClass.h"
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
    static AlgorithmFunctionSelector& retrieveFunctionSelector()
    {
        static AlgorithmFunctionSelector& g_selector = accessKernelClass(typeid(TDerived).name()).selector;
        return g_selector;
    }
    static AlgorithmFunctionSelector& accessFunctionSelector() { return retrieveFunctionSelector(); }
    const AlgorithmFunctionSelector& getFunctionSelector() const override { return retrieveFunctionSelector(); }

    /// The sets that the class is held to; empty by default. Change it while nothing of the class runs.
    static InstructionSetsIdentifier& retrieveForcedInstructionSets()
    {
        const std::lock_guard<std::mutex> lock(ForcedInstructionSetsMutex());
        static InstructionSetsIdentifier& g_forced = accessKernelClass(typeid(TDerived).name()).forced;
        return g_forced;
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

    static void createMutexes()
    {
        Scaffold<TDerived, BaseProcessingAlgorithm, TLibrary, TAttributes...>::createMutexes();
        ForcedInstructionSetsMutex();
    }

private:
    static std::mutex& ForcedInstructionSetsMutex()
    {
        static std::mutex g_mutex;
        return g_mutex;
    }
};

} // namespace orlix::processor
