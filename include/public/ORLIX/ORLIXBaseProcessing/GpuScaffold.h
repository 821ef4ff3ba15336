// What classes that work on devices have beyond the scaffold of every processor: the table of launchers.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseGpuProcessingAlgorithm.h"
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"

namespace orlix::processor {

template <class TDerived, class TLibrary, class... TAttributes>
class GpuScaffold : public Scaffold<TDerived, BaseGpuProcessingAlgorithm, TLibrary, TAttributes...>
{
public:
    /// The level above gives the outputs.
    void initOutputInitializers(OutputInitializerMap&) const {}

    /// The table of the class, made on first use. Filled while the library loads.
    static CudaFunctionSelector& retrieveFunctionSelector()
    {
        static CudaFunctionSelector& g_selector = accessCudaFunctionSelector(typeid(TDerived));
        return g_selector;
    }
    static CudaFunctionSelector& accessFunctionSelector() { return retrieveFunctionSelector(); }
    const CudaFunctionSelector& getFunctionSelector() const override { return retrieveFunctionSelector(); }
};

} // namespace orlix::processor
