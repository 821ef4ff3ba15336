// Counts plans for who watches a read or write, and remembers that it was asked to stop.
#pragma once

#include "ORLIX/ORLIXCore/CallWatch.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/ProgressFunction.h"

#include <exception>
#include <string>

namespace orlix::image::io {

/// Bytes after which the progress function is asked again: the slowest codec takes some 25 ms for so many.
inline constexpr unsigned long g_progressBytes = 32ul << 10;

/// One read or write, told to the progress function and to the call watch of the calling thread. The progress function
/// may throw, and is called from inside C libraries: what it throws is kept until `throwIfStopped`.
class Progress
{
public:
    Progress(const ProgressFunction& function, unsigned long plansKnown)
        : m_function(function), m_watch(core::CallWatch::getInnermost()), m_known(plansKnown)
    {}

    /// Asks those who watch; false where the work has to stop.
    bool goesOn() noexcept;
    /// As `goesOn`, but asks only once `g_progressBytes` have gathered.
    bool goesOnAfter(unsigned long bytes) noexcept;
    void addPlans(unsigned long plans) { m_done += plans; }

    /// Throws what the progress function threw, or message `id` about `file`, where the work had to stop.
    void throwIfStopped(eORLIXImageIOMessage::domain id, const std::string& file) const;

private:
    bool ask();

    const ProgressFunction& m_function;
    core::CallWatch* m_watch; ///< null where nobody watches the thread's calls
    unsigned long m_known;
    unsigned long m_done = 0;
    unsigned long m_bytes = 0;
    bool m_bStopped = false;
    std::exception_ptr m_exception;
};

} // namespace orlix::image::io
