// What the source file of a processor class does when its library is loaded.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/IdleProcessors.h"
#include "ORLIX/ORLIXBaseProcessing/KernelTable.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIX/ORLIXUtil/MessageMapRegistrator.h"

#include <cstddef>
#include <vector>

namespace orlix::processor {

namespace {

/// Idle processors of this library's classes end while their code is there.
[[gnu::destructor]] void endIdleProcessorsAtUnload()
{
    endIdleProcessors();
}

} // namespace

/// One static object of this type stands in each processor's source file. In order: the class enters the object
/// factory, its catalogue is filled, it enters the processor factory, its kernels enter their table, its mutexes are
/// made. At unload the kernels leave their table, and the class leaves both factories.
template <class TProcessor, class TToolTipCatalogue>
class ProcessorRegistration
{
public:
    ProcessorRegistration() { TProcessor::createMutexes(); }
    /// `kernels` in the order in which they are entered.
    template <std::size_t nbTables>
    explicit ProcessorRegistration(const KernelTable* const (&kernels)[nbTables])
        : m_selector(&TProcessor::retrieveFunctionSelector()), m_kernels(kernels, kernels + nbTables)
    {
        for (const KernelTable* table : m_kernels) {
            details::functionRegistration(*m_selector, *table);
        }
        TProcessor::createMutexes();
    }
    ProcessorRegistration(const ProcessorRegistration&) = delete;
    ProcessorRegistration& operator=(const ProcessorRegistration&) = delete;
    ~ProcessorRegistration()
    {
        for (const KernelTable* table : m_kernels) {
            details::unRegisterKernels(*m_selector, *table);
        }
    }

private:
    struct Catalogue
    {
        Catalogue() { MessageMapRegistrator<TToolTipCatalogue, void>::process(); }
    };

    DynamicRegistrator<TProcessor> m_dynamic;
    Catalogue m_catalogue;
    ProcessorRegistrator<TProcessor> m_processor;
    AlgorithmFunctionSelector* m_selector = nullptr;
    std::vector<const KernelTable*> m_kernels;
};

} // namespace orlix::processor
