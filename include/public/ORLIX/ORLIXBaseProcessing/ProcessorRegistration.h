// What the source file of a processor class does when its library is loaded.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelTable.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIX/ORLIXUtil/MessageMapRegistrator.h"

#include <initializer_list>

namespace orlix::processor {

/// One static object of this type stands in each processor's source file. In order: the class enters the object
/// factory, its catalogue is filled, it enters the processor factory, its kernels enter their table, its mutexes are
/// made. At unload the class leaves both factories.
template <class TProcessor, class TToolTipCatalogue>
class ProcessorRegistration
{
public:
    ProcessorRegistration() { TProcessor::createMutexes(); }
    /// `kernels` in order of their files.
    ProcessorRegistration(std::initializer_list<const KernelTable*> kernels)
    {
        for (const KernelTable* table : kernels) {
            details::functionRegistration(TProcessor::retrieveFunctionSelector(), *table);
        }
        TProcessor::createMutexes();
    }

private:
    struct Catalogue
    {
        Catalogue() { MessageMapRegistrator<TToolTipCatalogue, void>::process(); }
    };

    DynamicRegistrator<TProcessor> m_dynamic;
    Catalogue m_catalogue;
    ProcessorRegistrator<TProcessor> m_processor;
};

} // namespace orlix::processor
