// A processor that has a CUDA device do its work: the lowest level of a tower whose images lie there.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIX/ORLIXBaseProcessing/CudaFunctionSelector.h"

namespace orlix::processor {

/// A run: `preProcess`, the launcher is chosen by element types and called once, `postProcess`.
class ORLIXBASEPROCESSING_API BaseGpuProcessingAlgorithm : public BaseSyncProcessor
{
public:
    /// Which device does the work; 0 unless it was set.
    int getDeviceIndex() const { return m_deviceIndex; }
    void setDeviceIndex(int deviceIndex) { m_deviceIndex = deviceIndex; }

protected:
    ProcessingResult<bool> mainProcess() override;

public:
    virtual const CudaFunctionSelector& getFunctionSelector() const = 0;

protected:
    virtual ProcessingResult<bool> getDataTypeIdColl(DataTypeIdentifierColl& types) const = 0;
    StepResult preProcess() override { return StepResult::success(); }
    StepResult postProcess() override { return StepResult::success(); }

private:
    int m_deviceIndex = 0;
};

} // namespace orlix::processor
