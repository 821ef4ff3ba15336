// The table of the launchers of a class that works on CUDA devices, and the choice of one.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelIdentifiers.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <span>
#include <typeinfo>
#include <vector>

namespace orlix::processor {

class BaseGpuProcessingAlgorithm;

/// A launcher: has the device do all that the processor's attributes ask for, and waits for it.
using CudaFunction = ProcessingResult<bool> (BaseGpuProcessingAlgorithm::*)();

/// One row of the table.
class CudaFunctionIdentifier
{
public:
    void init(const DataTypeIdentifierColl& types, CudaFunction function)
    {
        m_types = types;
        m_function = function;
    }

    const DataTypeIdentifierColl& getDataTypes() const { return m_types; }
    CudaFunction getFunction() const { return m_function; }

private:
    DataTypeIdentifierColl m_types;
    CudaFunction m_function = nullptr;
};

/// Filled while libraries load, on the loading thread; read from any thread afterwards.
class ORLIXBASEPROCESSING_API CudaFunctionSelector
{
public:
    /// Stores a row. Fails for a null function and for types that are there already.
    ProcessingResult<bool> registerFunction(const CudaFunctionIdentifier& function);

    /// Takes out the rows of a function; does nothing if there is none.
    void unRegisterFunction(CudaFunction function) noexcept;

    /// The row for these types; null where there is none.
    const CudaFunctionIdentifier* select(const DataTypeIdentifierColl& types) const;

    /// All rows in the order of registration.
    const std::vector<CudaFunctionIdentifier>& getFunctions() const { return m_functions; }

private:
    std::vector<CudaFunctionIdentifier> m_functions;
};

/// The one table of a class, made on first use and kept until this library goes. It lies here and not in a static of
/// the class's templates, since every library that includes the class would have one of its own. May be called from any
/// thread.
ORLIXBASEPROCESSING_API CudaFunctionSelector& accessCudaFunctionSelector(const std::type_info& type);

/// One launcher and the types that it works on, as ids of a data type identifier; `type2` is 0 for a single type.
struct CudaFunctionRow
{
    unsigned char type1;
    unsigned char type2;
    CudaFunction function;
};

namespace details {

/// Enters the rows, in their order, whether or not there is a device. What cannot be entered is logged at the trace
/// level and left out: a library with a partial table still loads.
ORLIXBASEPROCESSING_API void functionRegistration(CudaFunctionSelector& selector,
                                                  std::span<const CudaFunctionRow> rows);
/// Takes out the launchers of a table whose code goes.
ORLIXBASEPROCESSING_API void unRegisterFunctions(CudaFunctionSelector& selector,
                                                 std::span<const CudaFunctionRow> rows) noexcept;

} // namespace details

} // namespace orlix::processor
