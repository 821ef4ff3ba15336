// When everything that an asynchronous run held is free again.
#pragma once

#include <boost/shared_ptr.hpp>

#include <thread>

namespace orlix::testing {

/// Waits until the thread that ran the processor has let go of it, which is a moment after its run has ended: the
/// images of its attributes are the caller's alone then.
template <class TProcessor>
void waitForSoleOwner(const boost::shared_ptr<TProcessor>& processor)
{
    while (processor.use_count() > 1) {
        std::this_thread::yield();
    }
}

} // namespace orlix::testing
