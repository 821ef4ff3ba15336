// What is known of the computers that may do work, which is one: this.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXHardware/GpuDescription.h"
#include "ORLIX/ORLIXHardware/ProcessorInfo.h"

namespace orlix::core {

/// What a computer is made of. Every query is safe from every thread.
class ORLIXCORE_API ComputerDescription
{
public:
    const hard::ProcessorInfo& getProcessorInfo() const;
    /// Of the layer that `hard::accessGpuLayer` gives, and as long as that.
    const hard::GpuDescription& getGpuDescription() const;
};

class ORLIXCORE_API ComputerInfo
{
public:
    const ComputerDescription& getComputerDescription() const { return m_description; }

private:
    ComputerDescription m_description;
};

class ORLIXCORE_API ComputerInfoPool
{
public:
    static ComputerInfoPool& getInstance();

    const ComputerInfo& getLocalComputerInfo() const { return m_local; }

private:
    ComputerInfoPool() = default;

    ComputerInfo m_local;
};

} // namespace orlix::core
