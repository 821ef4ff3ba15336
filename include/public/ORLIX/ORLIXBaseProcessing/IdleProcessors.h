// Idle processors of each thread, which end before the code of their classes goes.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"

#include <typeinfo>
#include <vector>

namespace orlix::processor {

using IdleProcessors = std::vector<boost::shared_ptr<BaseProcessor>>;

/// The calling thread's idle processors of a class: the same object until the thread ends, when they end with it.
ORLIXBASEPROCESSING_API IdleProcessors& accessIdleProcessors(const std::type_info& type);

/// Ends the idle processors of all classes and threads, as a library does whose code goes. No thread may run a
/// processor meanwhile. Does nothing where the process ends: its threads may still run then.
ORLIXBASEPROCESSING_API void endIdleProcessors() noexcept;

} // namespace orlix::processor
