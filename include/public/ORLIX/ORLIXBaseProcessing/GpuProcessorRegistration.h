// What the source file of a class that works on devices does when its library is loaded.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/CudaFunctionSelector.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::processor {

/// One static object of this type stands in the source file of each such class. In order: the class enters as any
/// processor does, then its launchers enter their table. At unload they leave it.
template <class TProcessor, class TToolTipCatalogue>
class GpuProcessorRegistration
{
public:
    /// The rows have to live as long as this object.
    explicit GpuProcessorRegistration(std::span<const CudaFunctionRow> rows)
        : m_selector(TProcessor::retrieveFunctionSelector()), m_rows(rows)
    {
        details::functionRegistration(m_selector, m_rows);
    }
    GpuProcessorRegistration(const GpuProcessorRegistration&) = delete;
    GpuProcessorRegistration& operator=(const GpuProcessorRegistration&) = delete;
    ~GpuProcessorRegistration() { details::unRegisterFunctions(m_selector, m_rows); }

private:
    ProcessorRegistration<TProcessor, TToolTipCatalogue> m_processor;
    CudaFunctionSelector& m_selector;
    std::span<const CudaFunctionRow> m_rows;
};

} // namespace orlix::processor
