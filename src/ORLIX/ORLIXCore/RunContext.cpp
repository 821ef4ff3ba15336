#include "ORLIX/ORLIXCore/RunContext.h"

namespace orlix::core {

void RunContext::report(unsigned long done, unsigned long known)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_progress.done += done;
    m_progress.known += known;
    m_observer(m_progress);
}

} // namespace orlix::core
