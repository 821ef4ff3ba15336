// The table of a level-3 class's kernels, and the choice of one.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelIdentifiers.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessingTypes.h"

#include <vector>

namespace orlix::processor {

class BaseProcessingAlgorithm;

/// A kernel: fills one block, or one line, of what the processor's parsers give.
using KernelFunction = ProcessingResult<bool> (BaseProcessingAlgorithm::*)(const ProcessingInfo&);

/// One row of the table.
class AlgorithmFunctionIdentifier
{
public:
    void init(const DataTypeIdentifierColl& types, const InstructionSetsIdentifier& sets, unsigned int efficiency,
              KernelFunction function)
    {
        m_types = types;
        m_sets = sets;
        m_efficiency = efficiency;
        m_function = function;
    }

    const DataTypeIdentifierColl& getDataTypes() const { return m_types; }
    const InstructionSetsIdentifier& getInstructionSets() const { return m_sets; }
    unsigned int getEfficiency() const { return m_efficiency; }
    KernelFunction getFunction() const { return m_function; }

private:
    DataTypeIdentifierColl m_types;
    InstructionSetsIdentifier m_sets;
    unsigned int m_efficiency = 0;
    KernelFunction m_function = nullptr;
};

/// Filled while libraries load, on the loading thread; read from any thread afterwards.
class ORLIXBASEPROCESSING_API AlgorithmFunctionSelector
{
public:
    AlgorithmFunctionSelector();
    ~AlgorithmFunctionSelector();

    /// May kernels with these sets be registered: can this processor run all of them?
    static bool isSupported(const InstructionSetsIdentifier& sets);

    /// Stores a row. Fails for a null function and for types and sets that are there already.
    ProcessingResult<bool> registerFunction(const AlgorithmFunctionIdentifier& function);

    /// Takes out the rows of a function; does nothing if there is none.
    void unRegisterFunction(KernelFunction function) noexcept;

    /// The row for these types with the highest figure not above the highest forced set; where nothing is forced or no
    /// row is that low, the row with the highest figure; null where the types have no row at all.
    const AlgorithmFunctionIdentifier* select(const DataTypeIdentifierColl& types,
                                              const InstructionSetsIdentifier& forced) const;
    /// All rows in the order of registration.
    const std::vector<AlgorithmFunctionIdentifier>& getFunctions() const { return m_functions; }

    /// For the whole process: classes that force nothing of their own act as if they forced `sets`. Empty by default.
    /// For command lines and tests; set it while nothing runs.
    static void setDefaultForcedInstructionSets(const InstructionSetsIdentifier& sets);

private:
    void unRegisterRow(unsigned row) noexcept;

    std::vector<AlgorithmFunctionIdentifier> m_functions;
    std::vector<std::vector<unsigned>> m_rowsOfKey; ///< by key: indices into m_functions, highest figure first
};

} // namespace orlix::processor
